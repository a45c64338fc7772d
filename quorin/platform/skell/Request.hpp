#pragma once

#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/skell/HTTPMethod.hpp"
#include "quorin/platform/skell/RequestBody.hpp"
#include "quorin/platform/skell/Response.hpp"
#include "quorin/platform/skell/SkellError.hpp"
#include "quorin/platform/skell/Transport.hpp"

#include <functional>
#include <map>
#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin::skell {

/// A request to be made: a plain record that may be made any number of times, on several threads too while none
/// changes it.
struct Request {
    HTTPMethod method = HTTPMethod::GET;

    /// An absolute http or https URL (RFC 3986). User info in it is sent as basic credentials.
    std::string url{};

    /// One header a name; names are exact keys, so "accept" and "Accept" are sent both. Host, Content-Length and
    /// Transfer-Encoding are the library's own and refused. It adds Accept-Encoding where that is absent, nothing else.
    std::map<std::string, std::string, std::less<>> headers{};

    /// Sent by every method, GET and HEAD too, but TRACE and CONNECT, which take none. Its type sets no header.
    std::optional<RequestBody> body{};

    /// How to send it; absent: `Transport::standard()` at the time of subscription.
    std::optional<Transport> transport{};

    /// Requests with neither headers nor a body.
    static Request make(HTTPMethod method, std::string url);
    static Request CONNECT(std::string url) { return make(HTTPMethod::CONNECT, std::move(url)); }
    static Request DELETE(std::string url) { return make(HTTPMethod::DELETE, std::move(url)); }
    static Request HEAD(std::string url) { return make(HTTPMethod::HEAD, std::move(url)); }
    static Request OPTIONS(std::string url) { return make(HTTPMethod::OPTIONS, std::move(url)); }
    static Request PATCH(std::string url) { return make(HTTPMethod::PATCH, std::move(url)); }
    static Request POST(std::string url) { return make(HTTPMethod::POST, std::move(url)); }
    static Request PUT(std::string url) { return make(HTTPMethod::PUT, std::move(url)); }
    static Request TRACE(std::string url) { return make(HTTPMethod::TRACE, std::move(url)); }
    static Request GET(std::string url) { return make(HTTPMethod::GET, std::move(url)); }

    /// Why it cannot be sent, of kind `invalidURL` or `invalidRequest`; empty when it can. Sending fails with the same,
    /// and besides where the times of the transport are not above zero.
    std::optional<SkellError> refusal() const;

    /// The one response, of whatever status, or a `SkellError`. Each subscription sends a request of its own; disposing
    /// it abandons the transfer and closes its connection. Any thread may subscribe, and none waits.
    ///
    /// Delivered on the library's request thread, where a slow handler holds up all other requests; once the process is
    /// exiting, the failure `cancelled` comes at once on the subscribing thread. Redirects are followed (RFC 9110
    /// section 15.4), but never from https to http; another origin gets neither the body nor any header but User-Agent
    /// and Accept, and no other method than GET or HEAD.
    rx::Observable<Response> response() const;
};

}  // namespace quorin::skell

#pragma GCC visibility pop
