#include "quorin/platform/skell/Exchange.hpp"

#include "quorin/platform/skell/Address.hpp"
#include "quorin/platform/skell/Loop.hpp"

#include <algorithm>
#include <utility>

namespace quorin::skell {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds longest = std::chrono::hours(24 * 365);  // keeps the clock from overflowing

}  // namespace

Exchange::Exchange(Loop& loop, Hop first, Transport transport, rx::Observer<Response> observer)
    : loop_(loop),
      firstURL_(first.url),
      hop_(std::move(first)),
      transport_(std::move(transport)),
      observer_(std::move(observer)),
      deadline_(steady_clock::now() + std::min(transport_.totalTimeout, longest)) {}

void Exchange::begin() {
    if (observer_.isDisposed()) return cancel();
    if (transport_.totalTimeout <= milliseconds::zero() || transport_.connectTimeout <= milliseconds::zero()) {
        return fail(SkellError::Kind::invalidRequest, "a transport whose times are not above zero");
    }
    startHop();
}

void Exchange::startHop() {
    const auto left = std::chrono::ceil<milliseconds>(deadline_ - steady_clock::now());
    if (left <= milliseconds::zero())
        return fail(SkellError::Kind::timeout, "no complete response in the time allowed");
    Hop sent = hop_;
    if (transport_.cookies && mayHaveCookies()) sent.addCookies(*transport_.cookies);
    if (loop_.isStopping()) return fail(SkellError::Kind::cancelled, "the process is exiting");
    if (auto refused = refusal(sent)) return fail(std::move(*refused));
    CURL* const easy = loop_.acquire();
    if (!easy) return fail(SkellError::Kind::network, "no memory for a transfer");
    transfer_.emplace(easy, std::move(sent), transport_);
    if (const CURLcode code = transfer_->prepare(left); code != CURLE_OK) return hopEnded(code);
    if (!loop_.add(easy, shared_from_this())) hopEnded(CURLE_FAILED_INIT);
}

/// Cookies know no ports (RFC 6265 section 8.5), but another origin of the first host must not have what is the
/// first's.
bool Exchange::mayHaveCookies() const {
    if (redirects_ == 0) return true;
    const auto from = Address::of(firstURL_);
    const auto to = Address::of(hop_.url);
    return from && to && (from->host != to->host || from->sameOrigin(*to));
}

void Exchange::takeCookies(const Response& response) const {
    if (transport_.cookies) transport_.cookies->setCookies(response.allHeaders("Set-Cookie"), response.url());
}

void Exchange::hopEnded(CURLcode code) {
    auto outcome = transfer_->outcome(code);
    CURL* const easy = transfer_->easy();
    loop_.release(easy);
    transfer_.reset();
    if (const auto* error = std::get_if<SkellError>(&outcome)) return fail(*error);
    take(std::move(*std::get_if<Response>(&outcome)));
}

void Exchange::take(Response response) {
    takeCookies(response);
    if (!isRedirect(response)) {
        const auto observer = end();
        observer.next(std::move(response));
        return observer.complete();
    }
    if (redirects_++ == transport_.maxRedirects) {
        return fail(SkellError::Kind::redirects, "more than " + std::to_string(transport_.maxRedirects) + " redirects");
    }
    if (auto refused = follow(response, hop_)) return fail(std::move(*refused));
    startHop();
}

void Exchange::cancel() {
    end();
    if (!transfer_ || loop_.isStopping()) return;
    CURL* const easy = transfer_->easy();
    loop_.remove(easy);
    loop_.release(easy);
    transfer_.reset();
}

void Exchange::fail(SkellError::Kind kind, std::string_view what) { fail(failure(kind, hop_.url, what)); }

void Exchange::fail(SkellError error) { end().fail(std::move(error)); }

rx::Observer<Response> Exchange::end() {
    isOver_ = true;
    return std::exchange(observer_, {});
}

}  // namespace quorin::skell
