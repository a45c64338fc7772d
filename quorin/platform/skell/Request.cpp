#include "quorin/platform/skell/Request.hpp"

#include "quorin/platform/skell/Curl.hpp"
#include "quorin/platform/skell/Exchange.hpp"
#include "quorin/platform/skell/Loop.hpp"

#include <memory>
#include <utility>

namespace quorin::skell {
namespace {

Hop hopOf(const Request& request) {
    return {request.method, request.url, request.headers, request.body ? request.body->sharedText() : nullptr};
}

std::string_view whyNot(SkellError::Kind kind) {
    if (kind == SkellError::Kind::cancelled) return "the process is exiting";
    return openCurl() ? "no thread for requests" : noCurl;
}

rx::Disposable send(const Request& request, rx::Observer<Response> observer) {
    Loop& loop = Loop::shared();
    Hop first = hopOf(request);
    Transport transport = request.transport ? *request.transport : Transport::standard();
    const auto exchange = std::make_shared<Exchange>(loop, std::move(first), std::move(transport), std::move(observer));
    if (const auto kind = loop.post([exchange] { exchange->begin(); })) {
        exchange->fail(*kind, whyNot(*kind));
        return rx::Disposable();
    }
    return rx::Disposable([&loop, known = std::weak_ptr(exchange)] {
        const auto running = known.lock();
        if (running && !running->isOver()) loop.post([running] { running->cancel(); });
    });
}

}  // namespace

Request Request::make(HTTPMethod method, std::string url) { return {.method = method, .url = std::move(url)}; }

std::optional<SkellError> Request::refusal() const { return skell::refusal(hopOf(*this)); }

rx::Observable<Response> Request::response() const {
    return rx::Observable<Response>(
        [request = *this](rx::Observer<Response> observer) { return send(request, std::move(observer)); });
}

}  // namespace quorin::skell
