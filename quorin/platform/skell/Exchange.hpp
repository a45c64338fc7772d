#pragma once

#include "quorin/platform/rx/Observer.hpp"
#include "quorin/platform/skell/Hop.hpp"
#include "quorin/platform/skell/Response.hpp"
#include "quorin/platform/skell/SkellError.hpp"
#include "quorin/platform/skell/Transfer.hpp"
#include "quorin/platform/skell/Transport.hpp"

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::skell {

class Loop;

/// One subscription's request on its way: hop after hop, until there is a response or a failure to deliver. Everything
/// happens on the loop's thread unless said otherwise.
class Exchange : public std::enable_shared_from_this<Exchange> {
public:
    /// The total time begins now. Any thread.
    Exchange(Loop& loop, Hop first, Transport transport, rx::Observer<Response> observer);

    void begin();

    /// libcurl is through with the hop under way.
    void hopEnded(CURLcode code);

    /// The subscriber left: the connection is closed and nothing is delivered.
    void cancel();

    /// Ends with a failure at the current URL. The hop under way, if any, must be off the loop.
    void fail(SkellError::Kind kind, std::string_view what);

    /// Any thread.
    bool isOver() const { return isOver_; }

private:
    void startHop();
    bool mayHaveCookies() const;
    void takeCookies(const Response& response) const;
    void take(Response response);
    void fail(SkellError error);
    rx::Observer<Response> end();

    Loop& loop_;
    const std::string firstURL_;
    Hop hop_;
    Transport transport_;
    rx::Observer<Response> observer_;
    std::chrono::steady_clock::time_point deadline_;
    int redirects_ = 0;
    std::optional<Transfer> transfer_{};
    std::atomic<bool> isOver_ = false;
};

}  // namespace quorin::skell
