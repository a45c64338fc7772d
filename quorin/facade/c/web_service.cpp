#include "quorin/facade/c/web_service.h"

#include "quorin/facade/KVTWebService.hpp"
#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/Map.hpp"

namespace c = quorin::c;
using quorin::KVTWebService;

quorin_status quorin_web_service_name(quorin_handle web_service, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<KVTWebService>(web_service, &KVTWebService::name, {buffer, capacity, size});
}
quorin_status quorin_web_service_url(quorin_handle web_service, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<KVTWebService>(web_service, &KVTWebService::url, {buffer, capacity, size});
}
quorin_status quorin_web_service_method(quorin_handle web_service, int32_t* method) {
    return c::answer<KVTWebService>(
        web_service, [](const KVTWebService& it) { return it.method().rawValue(); }, method);
}
quorin_status quorin_web_service_accept_header(quorin_handle web_service, int32_t* content_type) {
    return c::answer<KVTWebService>(
        web_service, [](const KVTWebService& it) { return it.acceptHeader().rawValue(); }, content_type);
}
quorin_status quorin_web_service_content_type_header(quorin_handle web_service, int32_t* content_type) {
    return c::answer<KVTWebService>(
        web_service, [](const KVTWebService& it) { return it.contentTypeHeader().rawValue(); }, content_type);
}
quorin_status quorin_web_service_headers(quorin_handle web_service, quorin_handle* map) {
    return c::answer<KVTWebService>(web_service, [](const KVTWebService& it) { return c::Map(it.headers()); }, map);
}
quorin_status quorin_web_service_encode(quorin_handle web_service, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<KVTWebService>(web_service, &KVTWebService::encode, {buffer, capacity, size});
}
quorin_status quorin_web_service_from_encoded(quorin_text json, quorin_handle* web_service) {
    return c::fromEncoded<KVTWebService>(json, web_service);
}
