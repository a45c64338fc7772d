#include "tests/platform/skell/Requests.hpp"
#include "tests/support/Command.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <sstream>
#include <string>
#include <string_view>

namespace quorin::skell {
namespace {

using support::outputOf;

/// What becomes of a body that comes as `bytes` in the encoding: itself, or the kind of failure.
std::string decodedFrom(std::string_view encoding, std::string_view bytes) {
    const FaultServer server({{"/", answer(200, bytes, "Content-Encoding: " + std::string(encoding) + "\r\n")}});
    const auto response = performed(server.url("/"));
    return response ? response->body() : kindOf(response);
}

std::string gzipped(const std::string& text) { return outputOf("printf '%s' '" + text + "' | gzip -nc"); }

constexpr std::string_view brotliHello("\x0b\x02\x80hello\x03");

Request limited(const FaultServer& server, std::size_t maxBody) {
    return with({.maxBody = maxBody}, Request::GET(server.url("/")));
}

/// In two chunks and the end of them.
std::string chunked(const std::string& bytes) {
    const auto chunk = [](const std::string& part) {
        std::ostringstream stream;
        stream << std::hex << part.size() << "\r\n" << part << "\r\n";
        return stream.str();
    };
    const std::size_t half = bytes.size() / 2;
    return chunk(bytes.substr(0, half)) + chunk(bytes.substr(half)) + "0\r\n\r\n";
}

long peakKibibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

TEST(Body, IsDecodedFromGzip) {
    EXPECT_EQ(decodedFrom("gzip", gzipped("hello")), "hello");
    EXPECT_EQ(decodedFrom("X-GZIP", gzipped("hello")), "hello");
    EXPECT_EQ(decodedFrom("gzip", gzipped("one ") + gzipped("two")), "one two");
}

TEST(Body, IsDecodedFromBrotli) { EXPECT_EQ(decodedFrom("br", brotliHello), "hello"); }

TEST(Body, IsTakenAsItIsWithoutAnEncoding) {
    EXPECT_EQ(decodedFrom("identity", "hello"), "hello");
    EXPECT_EQ(decodedFrom("", "hello"), "hello");
}

TEST(Body, MayBeEmptyInAnyEncoding) {
    EXPECT_EQ(decodedFrom("gzip", ""), "");
    EXPECT_EQ(decodedFrom("br", ""), "");
}

TEST(Body, IsNoneWhereItsEncodingIsBroken) {
    std::string changed = gzipped("hello, hello, hello");
    changed[changed.size() - 6] ^= 1;  // in the checksum
    EXPECT_EQ(decodedFrom("gzip", changed), "decoding");
    EXPECT_EQ(decodedFrom("gzip", "hello"), "decoding");
    EXPECT_EQ(decodedFrom("gzip", gzipped("hello") + "more"), "decoding");
    EXPECT_EQ(decodedFrom("br", "\xff\xff\xff\xff"), "decoding");
    EXPECT_EQ(decodedFrom("br", std::string(brotliHello) + "more"), "decoding");
}

TEST(Body, IsNoneWhereItsEncodingIsCutShort) {
    const std::string whole = gzipped("hello, hello, hello");
    for (std::size_t size = 1; size < whole.size(); ++size) {
        ASSERT_EQ(decodedFrom("gzip", whole.substr(0, size)), "decoding") << size;
    }
    EXPECT_EQ(decodedFrom("br", brotliHello.substr(0, 6)), "decoding");
}

TEST(Body, IsNoneInAnUnknownEncoding) {
    EXPECT_EQ(decodedFrom("zstd", "hello"), "decoding");
    EXPECT_EQ(decodedFrom("gzip, br", gzipped("hello")), "decoding");
}

TEST(Body, IsTakenUpToExactlyTheLimit) {
    const FaultServer server({{"/", answer(200, "12345")}});
    EXPECT_EQ(failureKind(limited(server, 5)), "none");
    EXPECT_EQ(failureKind(limited(server, 4)), "tooLarge");
    EXPECT_EQ(failureKind(limited(server, 0)), "tooLarge");
}

TEST(Body, IsMeasuredAfterDecoding) {
    const std::string bytes = outputOf("head -c 100000 /dev/zero | gzip -c");
    const FaultServer server({{"/", answer(200, bytes, "Content-Encoding: gzip\r\n")}});
    EXPECT_EQ(failureKind(limited(server, 100'000)), "none");
    EXPECT_EQ(failureKind(limited(server, 99'999)), "tooLarge");
}

TEST(Body, IsMeasuredInChunksToo) {
    const std::string head = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    const FaultServer server({{"/", head + "3\r\n123\r\n2\r\n45\r\n0\r\n\r\n"}});
    EXPECT_EQ(performed(limited(server, 5))->body(), "12345");
    EXPECT_EQ(failureKind(limited(server, 4)), "tooLarge");
}

TEST(Body, IsMeasuredWhereNoLengthIsAnnounced) {
    const std::string head = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";
    const FaultServer server({{"/", head + "12345"}});
    EXPECT_EQ(performed(limited(server, 5))->body(), "12345");
    EXPECT_EQ(failureKind(limited(server, 4)), "tooLarge");
}

TEST(Body, IsMeasuredAfterDecodingInChunksAndWithoutALength) {
    const std::string bytes = outputOf("head -c 100000 /dev/zero | gzip -c");
    const std::string encoded = "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n";
    for (const std::string& rest : {"Transfer-Encoding: chunked\r\n\r\n" + chunked(bytes), "\r\n" + bytes}) {
        const FaultServer server({{"/", encoded + rest}});
        EXPECT_EQ(failureKind(limited(server, 100'000)), "none");
        EXPECT_EQ(failureKind(limited(server, 99'999)), "tooLarge");
    }
}

TEST(Body, IsNotAwaitedToItsEndBeyondTheLimit) {
    const FaultServer server([](const ReceivedRequest&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\n\r\n");
        while (connection.send(std::string(1000, 'x'))) {
        }
        connection.close();
    });
    EXPECT_EQ(failureKind(limited(server, 100'000)), "tooLarge");
}

TEST(Body, IsNoneWhereItsEncodingIsCutShortInChunks) {
    const std::string bytes = gzipped("hello, hello, hello");
    const std::string head = "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n\r\n";
    const FaultServer server({{"/", head + chunked(bytes.substr(0, bytes.size() - 4))}});
    EXPECT_EQ(failureKind(server.url("/")), "decoding");
}

TEST(Body, DoesNotSwellWithABomb) {
    const std::string bytes = outputOf("head -c 300000000 /dev/zero | gzip -1c");
    const FaultServer server({{"/", answer(200, bytes, "Content-Encoding: gzip\r\n")}});
    const long before = peakKibibytes();
    EXPECT_EQ(failureKind(server.url("/")), "tooLarge");
    EXPECT_LT(peakKibibytes() - before, 128 * 1024);
}

TEST(Body, EndsWhereItsLengthSays) {
    const FaultServer server({{"/", answer(200, "12345") + "and more"}});
    EXPECT_EQ(performed(server.url("/"))->body(), "12345");
}

TEST(Body, EndsWithTheConnectionWhereNoLengthIsGiven) {
    const std::string bytes = "HTTP/1.0 200 OK\r\n\r\nuntil the end";
    const FaultServer server({{"/", bytes}});
    EXPECT_EQ(performed(server.url("/"))->body(), "until the end");
}

TEST(Body, IsNotWaitedForWhereThereIsNone) {
    const FaultServer server([](const ReceivedRequest& request, Connection& connection) {
        const std::string status = request.method == "HEAD" ? "200 OK" : request.target.substr(1) + " None";
        connection.send("HTTP/1.1 " + status + "\r\nContent-Encoding: gzip\r\nX: y\r\n\r\n");
    });
    EXPECT_EQ(performed(server.url("/204"))->status(), 204);
    EXPECT_EQ(performed(server.url("/304"))->status(), 304);
    EXPECT_EQ(performed(Request::HEAD(server.url("/")))->body(), "");
    EXPECT_EQ(performed(Request::make(HTTPMethod::CONNECT, server.url("/200")))->status(), 200);
}

}  // namespace
}  // namespace quorin::skell
