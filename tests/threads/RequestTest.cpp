#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"

#include "tests/support/FaultServer.hpp"
#include "tests/threads/Race.hpp"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace quorin::skell {
namespace {

TEST(Requests, AreSentAndCancelledAndFinishedAtOnce) {
    const support::FaultServer server(
        [](const auto&, const auto& client) { client.send(support::answer(200, "body")); });
    const auto request = Request::GET(server.url("/"));
    const auto finish = [&]() -> std::string {
        const auto response = rx::wait(request.response());
        if (!response) return response.error().description();
        return response->body() == "body" ? "" : "another body";
    };
    const auto cancel = [&]() -> std::string {
        request.response().subscribe(rx::Handlers<Response>()).dispose();
        return "";
    };
    const auto cancelWhileItEnds = [&]() -> std::string {
        const auto ended = std::make_shared<std::promise<void>>();
        const auto subscription =
            request.response().subscribe({.next = [ended](const Response&) { ended->set_value(); },
                                          .error = [ended](const rx::Error&) { ended->set_value(); }});
        ended->get_future().wait();
        subscription.dispose();
        return "";
    };
    EXPECT_EQ(threads::Race().add(4, finish).add(2, cancel).add(2, cancelWhileItEnds).run(), std::set<std::string>());
    EXPECT_EQ(finish(), "");
}

}  // namespace
}  // namespace quorin::skell
