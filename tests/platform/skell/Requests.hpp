#pragma once

#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include "tests/support/FaultServer.hpp"

#include <string>
#include <utility>

namespace quorin::skell {

using support::answer;
using support::Connection;
using support::FaultServer;
using support::ReceivedRequest;

/// The response to a request, waited for.
inline rx::Result<Response> performed(const Request& request) { return rx::wait(request.response()); }

inline rx::Result<Response> performed(std::string url) { return performed(Request::GET(std::move(url))); }

/// The failure that a result holds; of an impossible status when it holds none, so that nothing compares equal to it.
template <class T>
SkellError failureOf(const rx::Result<T>& result) {
    const SkellError* error = result ? nullptr : result.error().template as<SkellError>();
    return error ? *error : SkellError{.kind = SkellError::Kind::status, .status = -1, .message = "no failure"};
}

/// The text of the kind of failure, "none" for a value.
template <class T>
std::string kindOf(const rx::Result<T>& result) {
    return result ? "none" : std::string(SkellError::name(failureOf(result).kind));
}

inline std::string failureKind(const Request& request) { return kindOf(performed(request)); }
inline std::string failureKind(std::string url) { return failureKind(Request::GET(std::move(url))); }

/// The same request with other options.
inline Request with(Transport transport, Request request) {
    request.transport = std::move(transport);
    return request;
}

}  // namespace quorin::skell
