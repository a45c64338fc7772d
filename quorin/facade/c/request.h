#ifndef QUORIN_FACADE_C_REQUEST_H
#define QUORIN_FACADE_C_REQUEST_H

#include "quorin/facade/c/base.h"
#include "quorin/facade/c/integers.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// The request that an endpoint, or a URL and a method, and parameters describe, with the default headers of this
/// moment. Building sends nothing and does not ask the guard.
quorin_status quorin_request_build(quorin_handle params, quorin_handle web_service, quorin_handle* request);
quorin_status quorin_request_build_url(quorin_handle params, quorin_text url, int32_t method, quorin_handle* request);

/// A request with neither headers nor a body.
quorin_status quorin_request_create(int32_t method, quorin_text url, quorin_handle* request);

/// No text as value removes the header. The name is compared by bytes.
quorin_status quorin_request_set_header(quorin_handle request, quorin_text name, quorin_text value);

/// A body that is written of a JSON object, as one of QUORIN_CONTENT_TYPE_...; it sets no header.
quorin_status quorin_request_set_body(quorin_handle request, int32_t content_type, quorin_text json);

/// A body that is sent as it stands; no text: none is sent.
quorin_status quorin_request_set_bytes(quorin_handle request, quorin_text bytes);

quorin_status quorin_request_method(quorin_handle request, int32_t* method);
quorin_status quorin_request_url(quorin_handle request, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_request_headers(quorin_handle request, quorin_handle* map);
quorin_status quorin_request_body(quorin_handle request, char* buffer, uint64_t capacity, uint64_t* size);

/// A stream that sends the request, as it is now, when it is subscribed to: one response, of whatever status, or an
/// error.
quorin_status quorin_request_send(quorin_handle request, quorin_handle* observable);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
