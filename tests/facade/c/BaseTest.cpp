#include "quorin/facade/c/anonymous_bind.h"
#include "quorin/facade/c/base.h"
#include "quorin/facade/c/integers.h"

#include "tests/facade/c/Host.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>
#include <vector>

namespace quorin {
namespace {

using host::text;
using host::textWith;

quorin_handle bind(const char* profile = "p", const char* token = "t") {
    quorin_handle handle = QUORIN_NONE;
    EXPECT_EQ(quorin_anonymous_bind_make(quorin_text_of(profile), quorin_text_of(token), &handle), QUORIN_OK);
    return handle;
}

TEST(Status, HasAName) {
    EXPECT_STREQ(quorin_status_name(QUORIN_OK), "QUORIN_OK");
    EXPECT_STREQ(quorin_status_name(QUORIN_REFUSED), "QUORIN_REFUSED");
    EXPECT_STREQ(quorin_status_name(QUORIN_REFUSED + 1), "unknown");
    EXPECT_STREQ(quorin_status_name(-1), "unknown");
    EXPECT_STREQ(quorin_status_name(INT32_MIN), "unknown");
}

TEST(Handle, IsReleasedOnce) {
    const quorin_handle handle = bind();
    EXPECT_EQ(quorin_release(handle), QUORIN_OK);
    EXPECT_EQ(quorin_release(handle), QUORIN_INVALID_HANDLE);
    EXPECT_EQ(textWith(quorin_anonymous_bind_profile_id, handle).first, QUORIN_INVALID_HANDLE);
}

TEST(Handle, NoneIsNoObject) { EXPECT_EQ(quorin_release(QUORIN_NONE), QUORIN_INVALID_HANDLE); }

TEST(Handle, IsNeverUsedAgain) {
    std::set<quorin_handle> seen;
    for (int i = 0; i < 10000; ++i) {
        const quorin_handle handle = bind();
        EXPECT_TRUE(seen.insert(handle).second);
        quorin_release(handle);
    }
}

TEST(Handle, HasACopyThatOutlivesIt) {
    const quorin_handle handle = bind("profile");
    quorin_handle copy = QUORIN_NONE;
    EXPECT_EQ(quorin_copy(handle, &copy), QUORIN_OK);
    EXPECT_NE(copy, handle);
    quorin_release(handle);
    EXPECT_EQ(text(quorin_anonymous_bind_profile_id, copy), "profile");
    EXPECT_EQ(quorin_release(copy), QUORIN_OK);
    EXPECT_EQ(quorin_copy(copy, &copy), QUORIN_INVALID_HANDLE);
    EXPECT_EQ(copy, quorin_handle{QUORIN_NONE});
}

TEST(Handle, MayBeUsedByAnyThread) {
    const quorin_handle shared = bind("profile");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int turn = 0; turn < 2000; ++turn) {
                quorin_handle copy = QUORIN_NONE;
                EXPECT_EQ(quorin_copy(shared, &copy), QUORIN_OK);
                EXPECT_EQ(text(quorin_anonymous_bind_profile_id, copy), "profile");
                EXPECT_EQ(quorin_release(copy), QUORIN_OK);
            }
        });
    }
    for (auto& thread : threads) thread.join();
    quorin_release(shared);
}

TEST(Text, FitsWhereTheCapacityExceedsItsLength) {
    const quorin_handle handle = bind("four");
    char room[8] = "-------";
    std::uint64_t size = 0;
    EXPECT_EQ(quorin_anonymous_bind_profile_id(handle, room, 5, &size), QUORIN_OK);
    EXPECT_STREQ(room, "four");
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(room[5], '-');
    quorin_release(handle);
}

TEST(Text, IsNotCutWhereItDoesNotFit) {
    const quorin_handle handle = bind("four");
    char room[8] = "-------";
    std::uint64_t size = 0;
    EXPECT_EQ(quorin_anonymous_bind_profile_id(handle, room, 4, &size), QUORIN_TOO_SMALL);
    EXPECT_STREQ(room, "");
    EXPECT_EQ(room[1], '-');
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(quorin_anonymous_bind_profile_id(handle, room, 0, nullptr), QUORIN_TOO_SMALL);
    quorin_release(handle);
}

TEST(Text, TellsItsLengthAlone) {
    const quorin_handle handle = bind("four");
    std::uint64_t size = 0;
    EXPECT_EQ(quorin_anonymous_bind_profile_id(handle, nullptr, 99, &size), QUORIN_OK);
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(quorin_anonymous_bind_profile_id(handle, nullptr, 0, nullptr), QUORIN_INVALID_ARGUMENT);
    quorin_release(handle);
}

TEST(Text, IsEmptyWhereThereIsNone) {
    char room[8] = "-------";
    std::uint64_t size = 7;
    EXPECT_EQ(quorin_anonymous_bind_profile_id(QUORIN_NONE, room, sizeof room, &size), QUORIN_INVALID_HANDLE);
    EXPECT_STREQ(room, "");
    EXPECT_EQ(size, 0U);
    room[0] = '-';
    EXPECT_EQ(quorin_brand_raw_value(99, room, sizeof room, &size), QUORIN_INVALID_ARGUMENT);
    EXPECT_STREQ(room, "");
}

TEST(Text, MayHoldANul) {
    quorin_handle handle = QUORIN_NONE;
    quorin_anonymous_bind_make({"a\0b", 3}, {"", 0}, &handle);
    EXPECT_EQ(text(quorin_anonymous_bind_profile_id, handle), std::string("a\0b", 3));
    EXPECT_EQ(text(quorin_anonymous_bind_profile_jwt, handle), "");
    quorin_release(handle);
}

TEST(Text, IsRequiredWhereItMeansSomething) {
    quorin_handle handle = 7;
    EXPECT_EQ(quorin_anonymous_bind_make(quorin_text_of(nullptr), quorin_text_of("t"), &handle),
              QUORIN_INVALID_ARGUMENT);
    EXPECT_EQ(handle, quorin_handle{QUORIN_NONE});
}

TEST(AnonymousBind, GoesToItsArchiveAndBack) {
    const quorin_handle handle = bind();
    EXPECT_EQ(text(quorin_anonymous_bind_encode, handle), R"({"jwt":"t","profileId":"p"})");
    quorin_handle again = QUORIN_NONE;
    EXPECT_EQ(quorin_anonymous_bind_from_encoded(quorin_text_of(R"({"jwt":"t","profileId":"p"})"), &again), QUORIN_OK);
    EXPECT_EQ(text(quorin_anonymous_bind_profile_id, again), "p");
    quorin_release(again);
    quorin_release(handle);
}

TEST(FromEncoded, IsAbsentForAMapThatMakesNoneAndRefusesWhatIsNoMap) {
    quorin_handle handle = QUORIN_NONE;
    EXPECT_EQ(quorin_anonymous_bind_from_encoded(quorin_text_of("{}"), &handle), QUORIN_ABSENT);
    EXPECT_EQ(quorin_anonymous_bind_from_encoded(quorin_text_of("[]"), &handle), QUORIN_INVALID_ARGUMENT);
    EXPECT_EQ(quorin_anonymous_bind_from_encoded(quorin_text_of("{"), &handle), QUORIN_INVALID_ARGUMENT);
    EXPECT_EQ(quorin_anonymous_bind_from_encoded(quorin_text_of(nullptr), &handle), QUORIN_INVALID_ARGUMENT);
}

TEST(Integers, HaveTheTextOfTheirNativeValue) {
    EXPECT_EQ(text(quorin_brand_raw_value, QUORIN_BRAND_CALDOR), "003");
    EXPECT_EQ(text(quorin_brand_raw_value, QUORIN_BRAND_UNKNOWN), "unknown");
    EXPECT_EQ(text(quorin_content_type_raw_value, QUORIN_CONTENT_TYPE_URL_ENCODED),
              "application/x-www-form-urlencoded");
    EXPECT_EQ(text(quorin_http_method_raw_value, QUORIN_HTTP_METHOD_GET), "GET");
}

TEST(Integers, NeverEndTheProcess) {
    EXPECT_EQ(textWith(quorin_brand_raw_value, -1).first, QUORIN_ABSENT);
    for (const std::int32_t integer : {-2, 6, INT32_MIN, INT32_MAX})
        EXPECT_EQ(textWith(quorin_brand_raw_value, integer).first, QUORIN_INVALID_ARGUMENT) << integer;
}

TEST(Integers, AreFoundByTheirText) {
    std::int32_t integer = 7;
    EXPECT_EQ(quorin_brand_from_raw_value(quorin_text_of("plw"), &integer), QUORIN_OK);
    EXPECT_EQ(integer, QUORIN_BRAND_PELLOW);
    EXPECT_EQ(quorin_brand_from_raw_value(quorin_text_of("voss"), &integer), QUORIN_OK);
    EXPECT_EQ(integer, QUORIN_BRAND_UNDEFINED);
    EXPECT_EQ(quorin_content_type_from_raw_value(quorin_text_of("application/xml"), &integer), QUORIN_OK);
    EXPECT_EQ(integer, QUORIN_CONTENT_TYPE_XML);
    EXPECT_EQ(quorin_http_method_from_raw_value(quorin_text_of("BREW"), &integer), QUORIN_OK);
    EXPECT_EQ(integer, QUORIN_HTTP_METHOD_UNDEFINED);
}

}  // namespace
}  // namespace quorin
