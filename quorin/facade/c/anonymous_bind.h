#ifndef QUORIN_FACADE_C_ANONYMOUS_BIND_H
#define QUORIN_FACADE_C_ANONYMOUS_BIND_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// A profile and its token, which is a secret.
quorin_status quorin_anonymous_bind_make(quorin_text profile_id, quorin_text profile_jwt,
                                         quorin_handle* anonymous_bind);
quorin_status quorin_anonymous_bind_profile_id(quorin_handle anonymous_bind, char* buffer, uint64_t capacity,
                                               uint64_t* size);
quorin_status quorin_anonymous_bind_profile_jwt(quorin_handle anonymous_bind, char* buffer, uint64_t capacity,
                                                uint64_t* size);
quorin_status quorin_anonymous_bind_encode(quorin_handle anonymous_bind, char* buffer, uint64_t capacity,
                                           uint64_t* size);
quorin_status quorin_anonymous_bind_from_encoded(quorin_text json, quorin_handle* anonymous_bind);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
