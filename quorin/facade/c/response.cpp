#include "quorin/facade/c/response.h"

#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/Map.hpp"
#include "quorin/platform/skell/Response.hpp"

namespace c = quorin::c;
using quorin::skell::Response;

quorin_status quorin_response_status(quorin_handle response, int32_t* status) {
    return c::answer<Response>(response, &Response::status, status);
}
quorin_status quorin_response_url(quorin_handle response, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<Response>(response, &Response::url, {buffer, capacity, size});
}
quorin_status quorin_response_header(quorin_handle response, quorin_text name, char* buffer, uint64_t capacity,
                                     uint64_t* size) {
    c::clear({buffer, capacity, size});
    const auto wanted = c::viewOf(name);
    if (!wanted) return QUORIN_INVALID_ARGUMENT;
    return c::text<Response>(response, [&](const Response& it) { return it.header(*wanted); },
                             {buffer, capacity, size});
}
quorin_status quorin_response_headers(quorin_handle response, quorin_handle* map) {
    const auto fieldsOf = [](const Response& it) {
        c::Map fields;
        for (const auto& [name, value] : it.headers()) fields.entries.push_back({name, value, {}});
        return fields;
    };
    return c::answer<Response>(response, fieldsOf, map);
}
quorin_status quorin_response_body(quorin_handle response, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<Response>(response, &Response::body, {buffer, capacity, size});
}
