#ifndef QUORIN_FACADE_C_ERROR_H
#define QUORIN_FACADE_C_ERROR_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// The error that a stream ended with. What an error does not have is QUORIN_ABSENT.

/// One line for people.
quorin_status quorin_error_description(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size);

/// What went wrong, without the names of codes and kinds.
quorin_status quorin_error_message(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size);

/// The codes of an error that the library raised itself, as `InstrumentationCodes` lists them.
quorin_status quorin_error_component(quorin_handle error, int32_t* component);
quorin_status quorin_error_element(quorin_handle error, int32_t* element);
quorin_status quorin_error_code(quorin_handle error, int32_t* code);

/// Of an error that a request ended with: its kind, such as "timeout", the URL without its secrets, and the status of
/// the response where there was one.
quorin_status quorin_error_kind(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_error_url(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_error_status(quorin_handle error, int32_t* status);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
