#ifndef QUORIN_FACADE_C_QUORIN_H
#define QUORIN_FACADE_C_QUORIN_H

/// The whole library for hosts that call C (C99). It offers what the KVT classes offer, the observers of the identity
/// values, and requests; `base.h` says what holds of all functions.

#include "quorin/facade/c/anonymous_bind.h"
#include "quorin/facade/c/base.h"
#include "quorin/facade/c/configuration.h"
#include "quorin/facade/c/error.h"
#include "quorin/facade/c/integers.h"
#include "quorin/facade/c/manager.h"
#include "quorin/facade/c/map.h"
#include "quorin/facade/c/observable.h"
#include "quorin/facade/c/params.h"
#include "quorin/facade/c/request.h"
#include "quorin/facade/c/response.h"
#include "quorin/facade/c/web_service.h"

#endif
