#ifndef QUORIN_FACADE_C_INTEGERS_H
#define QUORIN_FACADE_C_INTEGERS_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// The brands that hosts have an integer for.
enum {
    QUORIN_BRAND_UNDEFINED = -1,  ///< none, or one without an integer
    QUORIN_BRAND_ORVEL = 0,
    QUORIN_BRAND_CALDOR = 1,
    QUORIN_BRAND_PELLOW = 2,
    QUORIN_BRAND_QUINTAR = 3,
    QUORIN_BRAND_TAVISH = 4,
    QUORIN_BRAND_UNKNOWN = 5
};

enum {
    QUORIN_CONTENT_TYPE_UNDEFINED = -1,
    QUORIN_CONTENT_TYPE_JSON = 0,
    QUORIN_CONTENT_TYPE_XML = 1,
    QUORIN_CONTENT_TYPE_URL_ENCODED = 2
};

enum {
    QUORIN_HTTP_METHOD_UNDEFINED = -1,
    QUORIN_HTTP_METHOD_CONNECT = 0,
    QUORIN_HTTP_METHOD_DELETE = 1,
    QUORIN_HTTP_METHOD_HEAD = 2,
    QUORIN_HTTP_METHOD_OPTIONS = 3,
    QUORIN_HTTP_METHOD_PATCH = 4,
    QUORIN_HTTP_METHOD_POST = 5,
    QUORIN_HTTP_METHOD_PUT = 6,
    QUORIN_HTTP_METHOD_TRACE = 7,
    QUORIN_HTTP_METHOD_GET = 8
};

/// The text that stands for the integer in documents and requests: "003", "application/json", "GET". QUORIN_ABSENT for
/// -1, QUORIN_INVALID_ARGUMENT for an integer that stands for nothing.
quorin_status quorin_brand_raw_value(int32_t brand, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_content_type_raw_value(int32_t content_type, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_http_method_raw_value(int32_t method, char* buffer, uint64_t capacity, uint64_t* size);

/// The integer of a text, the other way round: -1 where none stands for it. A brand's text is any of its aliases, and
/// any other text is that of the brand "unknown".
quorin_status quorin_brand_from_raw_value(quorin_text text, int32_t* brand);
quorin_status quorin_content_type_from_raw_value(quorin_text text, int32_t* content_type);
quorin_status quorin_http_method_from_raw_value(quorin_text text, int32_t* method);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
