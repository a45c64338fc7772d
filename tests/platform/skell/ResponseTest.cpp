#include "quorin/platform/skell/Response.hpp"
#include "quorin/platform/skell/ResponseHead.hpp"

#include "tests/platform/skell/Requests.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorin::skell {
namespace {

using testing::ElementsAre;

Response responseTo(const std::string& bytes) {
    const FaultServer server({{"/", bytes}});
    return *performed(server.url("/"));
}

TEST(Response, IsYieldedWhateverItsStatus) {
    for (const int status : {200, 201, 300, 302, 304, 400, 401, 404, 407, 500, 503, 599}) {
        EXPECT_EQ(responseTo(answer(status, status == 304 ? "" : "text")).status(), status);
    }
}

TEST(Response, KeepsOrderAndRepetitionOfItsHeaders) {
    const Response response = responseTo(answer(200, "", "B: 1\r\nA: 2\r\nb: 3\r\nB:\r\n"));
    EXPECT_THAT(response.headers(), ElementsAre(HeaderField{"B", "1"}, HeaderField{"A", "2"}, HeaderField{"b", "3"},
                                                HeaderField{"B", ""}, HeaderField{"Content-Length", "0"}));
}

TEST(Response, FindsHeadersInAnyLetterCase) {
    const Response response = responseTo(answer(200, "", "Content-Tag: a=b\r\ncontent-tag: c=d\r\n"));
    EXPECT_EQ(response.header("CONTENT-TAG"), "a=b");
    EXPECT_THAT(response.allHeaders("content-Tag"), ElementsAre("a=b", "c=d"));
    EXPECT_EQ(response.header("Tag"), std::nullopt);
    EXPECT_THAT(response.allHeaders("Tag"), ElementsAre());
}

TEST(Response, TrimsAndUnfoldsHeaders) {
    const Response response = responseTo(answer(200, "", "A: \t x y \t\r\nB: one\r\n  two\r\n"));
    EXPECT_EQ(response.header("A"), "x y");
    EXPECT_EQ(response.header("B"), "one two");
}

TEST(Response, HasABlankForACarriageReturnWithinAHeader) {
    const Response response = responseTo("HTTP/1.1 200 OK\r\nLocation: /\rx\r\nA: b\r\n c\rd\r\n\r\n");
    EXPECT_EQ(response.header("Location"), "/ x");
    EXPECT_EQ(response.header("A"), "b c d");
}

TEST(ResponseHead, TrimsWhatBecameABlank) {
    ResponseHead head;
    for (const std::string& line : {std::string("HTTP/1.1 200 OK\r\n"), std::string("A: \0 b\0c \0\r\n", 12),
                                    std::string("B: x\r\n"), std::string(" y\0\r\n", 5), std::string("\r\n")})
        EXPECT_TRUE(head.take(line));
    EXPECT_THAT(head.takeFields(), ElementsAre(HeaderField{"A", "b c"}, HeaderField{"B", "x y"}));
}

TEST(Response, IsTheFinalOneAndNotAnInterimOne) {
    const Response response =
        responseTo("HTTP/1.1 103 Early Hints\r\nLink: x\r\n\r\n" + answer(200, "text", "A: b\r\n"));
    EXPECT_EQ(response.status(), 200);
    EXPECT_EQ(response.header("Link"), std::nullopt);
}

TEST(Response, PassesOverTrailers) {
    const Response response = responseTo(
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nTrailer: A\r\n\r\n1\r\nx\r\n0\r\nSet-Cookie: a=b\r\n\r\n");
    EXPECT_EQ(response.body(), "x");
    EXPECT_EQ(response.header("Set-Cookie"), std::nullopt);
}

TEST(Response, SharesItsContentWithItsCopies) {
    const Response response = responseTo(answer(200, "text"));
    const Response copy = response;
    EXPECT_EQ(&copy.body(), &response.body());
}

}  // namespace
}  // namespace quorin::skell
