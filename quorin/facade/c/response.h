#ifndef QUORIN_FACADE_C_RESPONSE_H
#define QUORIN_FACADE_C_RESPONSE_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// What a server answered.

quorin_status quorin_response_status(quorin_handle response, int32_t* status);

/// Where the response came from, after all redirects.
quorin_status quorin_response_url(quorin_handle response, char* buffer, uint64_t capacity, uint64_t* size);

/// The first value under a name in any letter case, and a map of all fields as they came.
quorin_status quorin_response_header(quorin_handle response, quorin_text name, char* buffer, uint64_t capacity,
                                     uint64_t* size);
quorin_status quorin_response_headers(quorin_handle response, quorin_handle* map);

/// Decoded bytes, which may be any.
quorin_status quorin_response_body(quorin_handle response, char* buffer, uint64_t capacity, uint64_t* size);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
