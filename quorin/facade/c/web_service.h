#ifndef QUORIN_FACADE_C_WEB_SERVICE_H
#define QUORIN_FACADE_C_WEB_SERVICE_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// An endpoint of the configuration.

quorin_status quorin_web_service_name(quorin_handle web_service, char* buffer, uint64_t capacity, uint64_t* size);

/// A template: building a request fills its placeholders.
quorin_status quorin_web_service_url(quorin_handle web_service, char* buffer, uint64_t capacity, uint64_t* size);

/// One of QUORIN_HTTP_METHOD_..., and twice of QUORIN_CONTENT_TYPE_...
quorin_status quorin_web_service_method(quorin_handle web_service, int32_t* method);
quorin_status quorin_web_service_accept_header(quorin_handle web_service, int32_t* content_type);
quorin_status quorin_web_service_content_type_header(quorin_handle web_service, int32_t* content_type);

/// A map of texts: "Content-Type", and "Accept" where the service has one.
quorin_status quorin_web_service_headers(quorin_handle web_service, quorin_handle* map);
quorin_status quorin_web_service_encode(quorin_handle web_service, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_web_service_from_encoded(quorin_text json, quorin_handle* web_service);

/// Whether the call may be made: QUORIN_OK, or QUORIN_FAILED and an error where no configuration is loaded or the
/// parameters are not declared valid.
quorin_status quorin_web_service_configuration_guard(quorin_handle web_service, quorin_handle params,
                                                     quorin_handle* error);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
