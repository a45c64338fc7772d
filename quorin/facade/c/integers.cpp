#include "quorin/facade/c/integers.h"

#include "quorin/facade/KVTBrand.hpp"
#include "quorin/facade/KVTContentType.hpp"
#include "quorin/facade/KVTHTTPMethod.hpp"
#include "quorin/facade/c/Call.hpp"

namespace {

namespace c = quorin::c;
using quorin::Brand;
using quorin::ContentType;
using quorin::HTTPMethod;
using quorin::KVTBrand;
using quorin::KVTContentType;
using quorin::KVTHTTPMethod;

/// The raw value of the integer's native value.
template <class Facade, class Member>
quorin_status rawValue(std::int32_t integer, Member native, c::Buffer buffer) noexcept {
    c::clear(buffer);
    return c::guarded([&]() -> quorin_status {
        const auto value = Facade::fromRawValue(integer);
        if (!value) return QUORIN_INVALID_ARGUMENT;
        if (*value == Facade::undefined) return QUORIN_ABSENT;
        return c::put(((*value).*native)()->rawValue(), buffer);
    });
}

template <class Facade, class Native>
quorin_status fromRawValue(quorin_text text, std::int32_t* integer) noexcept {
    if (integer) *integer = Facade::undefined;
    const auto raw = c::viewOf(text);
    if (!integer || !raw) return QUORIN_INVALID_ARGUMENT;
    return c::put(Facade(Native::fromRawValue(*raw)).rawValue(), integer);
}

}  // namespace

quorin_status quorin_brand_raw_value(int32_t brand, char* buffer, uint64_t capacity, uint64_t* size) {
    return rawValue<KVTBrand>(brand, &KVTBrand::brand, {buffer, capacity, size});
}
quorin_status quorin_content_type_raw_value(int32_t content_type, char* buffer, uint64_t capacity, uint64_t* size) {
    return rawValue<KVTContentType>(content_type, &KVTContentType::contentType, {buffer, capacity, size});
}
quorin_status quorin_http_method_raw_value(int32_t method, char* buffer, uint64_t capacity, uint64_t* size) {
    return rawValue<KVTHTTPMethod>(method, &KVTHTTPMethod::httpMethod, {buffer, capacity, size});
}

quorin_status quorin_brand_from_raw_value(quorin_text text, int32_t* brand) {
    return fromRawValue<KVTBrand, Brand>(text, brand);
}
quorin_status quorin_content_type_from_raw_value(quorin_text text, int32_t* content_type) {
    return fromRawValue<KVTContentType, ContentType>(text, content_type);
}
quorin_status quorin_http_method_from_raw_value(quorin_text text, int32_t* method) {
    return fromRawValue<KVTHTTPMethod, HTTPMethod>(text, method);
}
