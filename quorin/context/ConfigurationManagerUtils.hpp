#pragma once

/// The static helpers of the library, each told where its subject is.
#include "quorin/context/StoredIdentity.hpp"  // IWYU pragma: export
#include "quorin/context/UserAgent.hpp"       // IWYU pragma: export
#include "quorin/context/UserZ.hpp"           // IWYU pragma: export
