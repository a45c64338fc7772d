#include "quorin/platform/foundation/UTF8.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorin {
namespace {

using ConfigurationManagerUtils::urlEncode;
using OptionalText = std::optional<std::string>;

constexpr std::string_view escaped = "!*'();:@&=+$,/?%#[] ";

bool isEscaped(char c) { return escaped.find(c) != escaped.npos; }

std::string encodedValue(const std::string& value) { return urlEncode(StringMap{{"", value}}).value_or("absent"); }

TEST(URLEncode, JoinsEscapedPairs) {
    EXPECT_EQ(urlEncode(StringMap{{"q", "a b&c"}}), "q=a%20b%26c");
    EXPECT_EQ(urlEncode(StringMap{{"q", "1"}, {"a b", "c=d"}}), "a%20b=c%3Dd&q=1");
}

TEST(URLEncode, EscapesTheseTwenty) {
    ASSERT_EQ(escaped.size(), 20U);
    EXPECT_EQ(encodedValue(std::string(escaped)), "=%21%2A%27%28%29%3B%3A%40%26%3D%2B%24%2C%2F%3F%25%23%5B%5D%20");
    EXPECT_EQ(urlEncode(StringMap{{std::string(escaped), ""}}),
              "%21%2A%27%28%29%3B%3A%40%26%3D%2B%24%2C%2F%3F%25%23%5B%5D%20=");
}

TEST(URLEncode, LeavesEveryOtherASCIICharacter) {
    EXPECT_EQ(encodedValue("\"<>|^`{}\\-._~"), "=\"<>|^`{}\\-._~");
    for (int code = 0; code < 0x80; ++code) {
        const std::string text(1, static_cast<char>(code));
        if (isEscaped(text[0])) continue;
        EXPECT_EQ(encodedValue(text), "=" + text) << code;
    }
}

TEST(URLEncode, LeavesControlCharacters) {
    EXPECT_EQ(encodedValue(std::string("\0\t\r\n\x1F\x7F", 6)), std::string("=\0\t\r\n\x1F\x7F", 7));
}

TEST(URLEncode, EscapesTextBeyondASCIIByteByByte) {
    const std::pair<const char*, const char*> cases[] = {
        {"\xC2\x80", "=%C2%80"},
        {"\xC3\xA9", "=%C3%A9"},
        {"\xE2\x82\xAC", "=%E2%82%AC"},
        {"\xEF\xBF\xBF", "=%EF%BF%BF"},
        {"a\xF0\x9F\x98\x80z", "=a%F0%9F%98%80z"},
    };
    for (const auto& [value, expected] : cases) EXPECT_EQ(encodedValue(value), expected);
}

TEST(URLEncode, SkipsAPairThatIsNotUTF8) {
    const std::pair<StringMap, OptionalText> cases[] = {
        {{{"a", "\xFF"}, {"b", "1"}}, "b=1"},
        {{{"a", "1"}, {"b", "x\xC3"}}, "a=1"},
        {{{"a", "1"}, {"b\x80", "2"}, {"c", "3"}}, "a=1&c=3"},
        {{{"a", "1"}, {"b", "\xED\xA0\x80"}, {"c", "\xC0\x80"}}, "a=1"},
        {{{"", "\xFF"}, {"a", ""}}, "a="},
    };
    for (const auto& [pairs, expected] : cases) EXPECT_EQ(urlEncode(pairs), expected) << pairs.begin()->first;
}

TEST(URLEncode, IsAbsentWhereThereIsNoPair) {
    EXPECT_EQ(urlEncode(std::nullopt), std::nullopt);
    EXPECT_EQ(urlEncode(StringMap()), std::nullopt);
    EXPECT_EQ(urlEncode(StringMap{{"a", "\xFF"}, {"\xFF", "b"}}), std::nullopt);
}

TEST(URLEncode, TakesAnEmptyKeyAndAnEmptyValue) {
    const std::pair<StringMap, OptionalText> cases[] = {
        {{{"", ""}}, "="},
        {{{"", "v"}}, "=v"},
        {{{"k", ""}}, "k="},
        {{{"", ""}, {"k", ""}}, "=&k="},
    };
    for (const auto& [pairs, expected] : cases) EXPECT_EQ(urlEncode(pairs), expected);
}

TEST(URLEncode, GoesInByteOrderOfTheKeys) {
    EXPECT_EQ(urlEncode(StringMap{{"b", "1"}, {"\xC3\xA9", "2"}, {"a~", "3"}, {"a", "4"}, {"Z", "5"}, {"10", "6"}}),
              "10=6&Z=5&a=4&a~=3&b=1&%C3%A9=2");
}

int digit(char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto value = digits.find(c);
    RC_ASSERT(value != digits.npos);
    return static_cast<int>(value);
}

/// What a reader of a query makes of a name or a value, who meets no character that should have been escaped.
std::string decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            bytes += static_cast<char>(digit(text.at(i + 1)) * 16 + digit(text.at(i + 2)));
            i += 2;
        } else {
            RC_ASSERT(!isEscaped(text[i]) && static_cast<unsigned char>(text[i]) < 0x80);
            bytes += text[i];
        }
    }
    return bytes;
}

StringMap pairsIn(std::string_view query) {
    StringMap pairs;
    while (true) {
        const auto end = std::min(query.find('&'), query.size());
        const auto divider = query.find('=');
        RC_ASSERT(divider < end);
        const bool isNew =
            pairs.emplace(decoded(query.substr(0, divider)), decoded(query.substr(divider + 1, end - divider - 1)))
                .second;
        RC_ASSERT(isNew);
        if (end == query.size()) return pairs;
        query.remove_prefix(end + 1);
    }
}

/// Texts of all kinds of characters, some of them no UTF-8.
rc::Gen<std::string> anyText() {
    const auto character = rc::gen::oneOf(
        rc::gen::map(rc::gen::inRange(0, 0x80), [](int code) { return std::string(1, static_cast<char>(code)); }),
        rc::gen::element<std::string>("%", "&", "=", "+", " ", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"),
        rc::gen::weightedElement<std::string>({{20, ""}, {1, "\xFF"}}));
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(character), [](const auto& characters) {
        std::string text;
        for (const std::string& one : characters) text += one;
        return text;
    });
}

RC_GTEST_PROP(URLEncode, DecodesToThePairsThatAreUTF8, ()) {
    const auto given =
        *rc::gen::container<std::vector<std::pair<std::string, std::string>>>(rc::gen::pair(anyText(), anyText()));
    const StringMap pairs(given.begin(), given.end());
    StringMap expected = pairs;
    std::erase_if(expected,
                  [](const auto& pair) { return !foundation::isUTF8(pair.first) || !foundation::isUTF8(pair.second); });
    const auto query = urlEncode(pairs);
    RC_ASSERT((query ? pairsIn(*query) : StringMap()) == expected);
}

}  // namespace
}  // namespace quorin
