#include "quorin/facade/c/request.h"

#include "quorin/facade/KVTWebService.hpp"
#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/HostParams.hpp"
#include "quorin/facade/c/Map.hpp"
#include "quorin/platform/brule/SwiftObservable.hpp"
#include "quorin/services/requests/Skell.hpp"

namespace {

namespace c = quorin::c;
using c::HostParams;
using quorin::HTTPMethod;
using quorin::KVTContentType;
using quorin::KVTHTTPMethod;
using quorin::KVTWebService;
using quorin::Object;
using quorin::Skell;
using quorin::StringMap;
using quorin::SwiftObservable;
using quorin::skell::RequestBody;
using quorin::skell::RequestBodyType;

/// How a body of the media type is written.
std::optional<RequestBodyType> bodyTypeOf(std::int32_t contentType) {
    switch (contentType) {
        case KVTContentType::JSON: return RequestBodyType::JSON;
        case KVTContentType::XML: return RequestBodyType::XML;
        case KVTContentType::urlEncoded: return RequestBodyType::urlEncoded;
        default: return std::nullopt;
    }
}

std::optional<HTTPMethod> methodOf(std::int32_t method) {
    const auto known = KVTHTTPMethod::fromRawValue(method);
    return known && *known != KVTHTTPMethod::undefined ? known->httpMethod() : std::nullopt;
}

}  // namespace

quorin_status quorin_request_build(quorin_handle params, quorin_handle web_service, quorin_handle* request) {
    return c::into(request, [&] {
        return c::with<HostParams>(params, [&](const HostParams& call) {
            return c::with<KVTWebService>(web_service, [&](const KVTWebService& service) {
                return c::put(Object(Skell::build(call, service.webService())), request);
            });
        });
    });
}

quorin_status quorin_request_build_url(quorin_handle params, quorin_text url, int32_t method, quorin_handle* request) {
    return c::into(request, [&]() -> quorin_status {
        auto address = c::textOf(url);
        const auto known = methodOf(method);
        if (!address || !known) return QUORIN_INVALID_ARGUMENT;
        return c::with<HostParams>(params, [&](const HostParams& call) {
            return c::put(Object(Skell::build({.requestURL = *std::move(address),
                                               .requestMethod = *known,
                                               .requestHeaders = call.headers().value_or(StringMap()),
                                               .urlMapping = call.URLMapping(),
                                               .queryParameters = call.queryParameters(),
                                               .dictionaryRepresentation = call.dictionaryRepresentation(),
                                               .removeUserAgent = call.removeUserAgent()})),
                          request);
        });
    });
}

quorin_status quorin_request_create(int32_t method, quorin_text url, quorin_handle* request) {
    return c::into(request, [&]() -> quorin_status {
        auto address = c::textOf(url);
        const auto known = methodOf(method);
        if (!address || !known) return QUORIN_INVALID_ARGUMENT;
        return c::put(Object(Skell::createSkell(*known, *std::move(address))), request);
    });
}

quorin_status quorin_request_set_header(quorin_handle request, quorin_text name, quorin_text value) {
    return c::guarded([&]() -> quorin_status {
        const auto key = c::textOf(name);
        if (!key || !c::isValid(value)) return QUORIN_INVALID_ARGUMENT;
        return c::changed<Skell>(request, [&](Skell& it) {
            it.headers.erase(*key);
            if (auto text = c::textOf(value)) it.headers.emplace(*key, *std::move(text));
        });
    });
}

quorin_status quorin_request_set_body(quorin_handle request, int32_t content_type, quorin_text json) {
    return c::guarded([&]() -> quorin_status {
        const auto type = bodyTypeOf(content_type);
        const auto content = c::mapOf(json);
        if (!type || !content) return QUORIN_INVALID_ARGUMENT;
        return c::changed<Skell>(request, [&](Skell& it) { it.body.emplace(*type, *content); });
    });
}

quorin_status quorin_request_set_bytes(quorin_handle request, quorin_text bytes) {
    return c::guarded([&]() -> quorin_status {
        if (!c::isValid(bytes)) return QUORIN_INVALID_ARGUMENT;
        return c::changed<Skell>(request, [&](Skell& it) {
            it.body.reset();
            if (auto text = c::textOf(bytes)) it.body = RequestBody::bytes(*std::move(text));
        });
    });
}

quorin_status quorin_request_method(quorin_handle request, int32_t* method) {
    return c::answer<Skell>(request, [](const Skell& it) { return KVTHTTPMethod(it.method).rawValue(); }, method);
}
quorin_status quorin_request_url(quorin_handle request, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<Skell>(request, &Skell::url, {buffer, capacity, size});
}
quorin_status quorin_request_headers(quorin_handle request, quorin_handle* map) {
    return c::answer<Skell>(request, [](const Skell& it) { return c::Map(it.headers); }, map);
}
quorin_status quorin_request_body(quorin_handle request, char* buffer, uint64_t capacity, uint64_t* size) {
    const auto bytes = [](const Skell& it) {
        return it.body ? std::optional<std::string_view>(it.body->text()) : std::nullopt;
    };
    return c::text<Skell>(request, bytes, {buffer, capacity, size});
}

quorin_status quorin_request_send(quorin_handle request, quorin_handle* observable) {
    return c::answer<Skell>(request, [](const Skell& it) { return SwiftObservable(it.response()); }, observable);
}
