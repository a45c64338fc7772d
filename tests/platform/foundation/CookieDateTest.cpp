#include "quorin/platform/foundation/CookieDate.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace quorin::foundation {
namespace {

using Time = std::chrono::sys_seconds;

struct Row {
    std::string text;
    std::int64_t seconds;  ///< since 1970
};

void expectRead(std::initializer_list<Row> rows) {
    for (const auto& row : rows) EXPECT_EQ(cookieDate(row.text), Time(std::chrono::seconds(row.seconds))) << row.text;
}

TEST(CookieDate, IsReadInTheFormsThatServersWrite) {
    expectRead({{"Sun, 06 Nov 1994 08:49:37 GMT", 784111777},
                {"Sunday, 06-Nov-94 08:49:37 GMT", 784111777},
                {"Sun Nov  6 08:49:37 1994", 784111777},
                {"Thu, 01 Jan 1970 00:00:00 GMT", 0},
                {"Wed, 31 Dec 1969 23:59:59 GMT", -1},
                {"Tue, 29 Feb 2000 12:00:00 GMT", 951825600}});
}

TEST(CookieDate, HasItsPartsInAnyOrderBetweenAnyDelimiters) {
    expectRead({{"08:49:37 1994 06 Nov", 784111777},
                {"8:49:37,6;Nov\"1994", 784111777},
                {"\t6\tnov\t1994\t8:49:37\t", 784111777},
                {"~6/NOV{1994}8:49:37_", 784111777},
                {"8:49:37 nov 6 94", 784111777}});
}

TEST(CookieDate, HasEveryASCIISignButTheColonAsADelimiter) {
    for (const char c : std::string("\t !\"#$%&'()*+,-./;<=>?@[\\]^_`{|}~"))
        EXPECT_TRUE(cookieDate(std::string("6 Nov 1994") + c + "8:49:37")) << c;
    for (const char c : std::string(":aZ0\x7F\x80\xFF"))
        EXPECT_FALSE(cookieDate(std::string("6 Nov 1994") + c + "8:49:37")) << c;
}

TEST(CookieDate, IgnoresWhatFollowsAPartInItsToken) {
    expectRead({{"6th November 1994AD 8:49:37GMT", 784111777},
                {"6 Novembre 1994: 8:49:37:00", 784111777},
                {"6\xC3\xA4 Nov\xFF 1994\x80 8:49:37\x7F", 784111777}});
}

TEST(CookieDate, TakesTheFirstTokenThatCanBeAPart) {
    expectRead({{"6 07 Nov 8:49:37", 1194338977}, {"6 Nov Dec 1994 1995 8:49:37 9:00:00", 784111777}});
}

TEST(CookieDate, HasYearsBelow100From1970To2069) {
    expectRead({{"1 Jan 70 0:0:0", 0},
                {"1 Jan 99 0:0:0", 915148800},
                {"1 Jan 00 0:0:0", 946684800},
                {"1 Jan 69 0:0:0", 3124224000},
                {"1 Jan 070 0:0:0", 0},
                {"1 Jan 0000 0:0:0", 946684800}});
}

TEST(CookieDate, MayBeCenturiesAway) {
    expectRead({{"31 Dec 9999 23:59:59", 253402300799}, {"1 Jan 1601 0:0:0", -11644473600}});
}

TEST(CookieDate, OutOfRangeIsNone) {
    for (const char* text : {"0 Nov 1994 8:49:37", "32 Nov 1994 8:49:37", "31 Nov 1994 8:49:37", "29 Feb 1900 8:49:37",
                             "30 Feb 2000 8:49:37", "6 Nov 1994 24:00:00", "6 Nov 1994 8:60:00", "6 Nov 1994 8:00:60",
                             "31 Dec 1600 23:59:59", "1 Jan 100 0:0:0"})
        EXPECT_EQ(cookieDate(text), std::nullopt) << text;
}

TEST(CookieDate, WithoutAPartIsNone) {
    for (const char* text : {"",
                             " ",
                             "Nov 1994 8:49:37",
                             "6 1994 8:49:37",
                             "6 Nov 8:49:37",
                             "6 Nov 1994",
                             "6 Nov 1994 8:49",
                             "6 Nov 1994 8:49:",
                             "6 Nov 1994 8::37",
                             "6 Nov 1994 008:49:37",
                             "6 Nov 1994 8:49:370",
                             "6 Nov 19940 8:49:37",
                             "6 Nov 4 8:49:37",
                             "006 Nov 1994 8:49:37",
                             "6 No 1994 8:49:37",
                             "6 11 1994 8:49:37",
                             "+6Nov1994 8:49:37",
                             "94 06 Nov 8:49:37",
                             "784111777",
                             "never"})
        EXPECT_EQ(cookieDate(text), std::nullopt) << text;
}

TEST(CookieDate, OfMillionsOfTokensIsReadOnce) {
    std::string text = "6 Nov 1994 8:49:37";
    for (int i = 0; i < 1'000'000; ++i) text += " 1:";
    EXPECT_EQ(cookieDate(text), Time(std::chrono::seconds(784111777)));
}

}  // namespace
}  // namespace quorin::foundation
