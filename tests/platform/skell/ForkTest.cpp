#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"

#include "tests/support/Child.hpp"
#include "tests/support/FaultServer.hpp"

#include <gtest/gtest.h>

namespace quorin::skell {
namespace {

std::string endOf(const Request& request) {
    const auto response = rx::wait(request.response());
    return response ? std::to_string(response->status())
                    : std::string(SkellError::name(response.error().as<SkellError>()->kind));
}

TEST(Fork, LeavesAChildWithoutRequestsWhereItsParentHasSentOne) {
    const support::FaultServer server({{"/", support::answer(200)}});
    const Request request = Request::GET(server.url("/"));
    EXPECT_EQ(endOf(request), "200");
    EXPECT_EQ(support::inChild([&] { return endOf(request); }), "network");
    EXPECT_EQ(endOf(request), "200");
}

}  // namespace
}  // namespace quorin::skell
