#include "quorin/facade/c/web_service.h"

#include "quorin/facade/KVTWebService.hpp"
#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/HostParams.hpp"
#include "quorin/facade/c/Map.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Response.hpp"

namespace c = quorin::c;
using c::HostParams;
using quorin::KVTWebService;
using quorin::skell::Response;

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

quorin_status quorin_web_service_configuration_guard(quorin_handle web_service, quorin_handle params,
                                                     quorin_handle* error) {
    return c::into(error, [&] {
        return c::with<HostParams>(params, [&](const HostParams& call) {
            return c::with<KVTWebService>(web_service, [&](const KVTWebService& service) -> quorin_status {
                const auto refusal = service.webService().configurationGuard<Response>(call);
                if (!refusal) return QUORIN_OK;
                return c::failed(quorin::rx::wait(*refusal).error(), error);
            });
        });
    });
}
