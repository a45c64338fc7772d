// Where memory is missing, no half of a cookie is read, and a storage holds what it held, or what it should.
#include "quorin/platform/foundation/HTTPCookieStorage.hpp"
#include "quorin/platform/foundation/SetCookie.hpp"

#include "tests/faults/EachAllocation.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::foundation {
namespace {

using faults::Failed;

constexpr std::string_view url = "https://www.example.test/a/path/that/is/long";
constexpr std::array<std::string_view, 2> fields{
    "KOVA=a value that is long enough; Domain=example.test; Path=/a/path/that/is/long; Max-Age=3600; SameSite=Lax",
    "other=and another value that is long; Expires=Wed, 01 Jan 2098 00:00:00 GMT; Secure; HttpOnly"};

TEST(CookieWithoutMemory, IsTakenApartWithoutAny) {
    EXPECT_EQ(faults::failEachAndKeepNothing([] { EXPECT_TRUE(SetCookie::parse(fields[0])); }), 0);
}

TEST(CookieWithoutMemory, IsReadWholeOrNotAtAll) {
    const auto expected = HTTPCookie::cookiesWithResponseHeaderFields(fields, url);
    ASSERT_EQ(expected.size(), 2U);
    const auto now = HTTPCookie::Time{};
    const auto read = [&] { EXPECT_EQ(HTTPCookie::cookiesWithResponseHeaderFields(fields, url, now).size(), 2U); };
    EXPECT_GT(faults::failEachAndKeepNothing(read), 5);
}

/// Each name with its value, as a request would carry them.
std::string heldBy(const HTTPCookieStorage& storage) { return storage.cookieHeader(url); }

TEST(CookieWithoutMemory, IsHeldAsBeforeOrAsSet) {
    HTTPCookieStorage storage;
    const std::string old = "old=a value from before that is long";
    const std::string one = "KOVA=a value that is long enough; " + old;
    const std::string both = one + "; other=and another value that is long";
    const std::array<std::string_view, 1> olds{old};
    long most = 0;
    const auto look = [&](const Failed& failed) {
        const std::string held = heldBy(storage);
        EXPECT_TRUE(held == old || held == one || held == both) << held;
        EXPECT_TRUE(failed.isThrown || held == both) << held;
        ++most;
    };
    storage.setCookies(olds, url);
    faults::failEach([&] { storage.setCookies(fields, url); }, look);
    EXPECT_EQ(heldBy(storage), both);
    EXPECT_GT(most, 10);
}

TEST(CookieWithoutMemory, IsSentWithTheOthersOrTheRequestIsNotMade) {
    HTTPCookieStorage storage;
    storage.setCookies(fields, url);
    const std::string expected = heldBy(storage);
    EXPECT_GT(faults::failEachAndKeepNothing([&] { EXPECT_EQ(heldBy(storage), expected); }), 5);
    EXPECT_GT(faults::failEachAndKeepNothing([&] { EXPECT_EQ(storage.cookies().size(), 2U); }), 3);
}

}  // namespace
}  // namespace quorin::foundation
