#include "quorin/platform/skell/FormBody.hpp"

#include "tests/platform/json/AnyValue.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorin::skell {
namespace {

using json::DocumentMap;
using json::List;
using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST(FormBody, WritesItsMembersInByteOrder) {
    EXPECT_EQ(formBody({{"b", "2"}, {"a", "1"}, {"B", "3"}, {"\xC3\xA9", "4"}}), "B=3&a=1&b=2&%C3%A9=4");
    EXPECT_EQ(formBody({}), "");
}

TEST(FormBody, WritesABlankAsAPlusSign) { EXPECT_EQ(formBody({{"a b", " + "}}), "a+b=+%2B+"); }

TEST(FormBody, KeepsLettersDigitsAndFourMarksOnly) {
    EXPECT_EQ(formBody({{"aZ09*-._", "aZ09*-._"}}), "aZ09*-._=aZ09*-._");
    EXPECT_EQ(formBody({{"k", "!\"#$%&'(),/:;<=>?@[\\]^`{|}~"}}),
              "k=%21%22%23%24%25%26%27%28%29%2C%2F%3A%3B%3C%3D%3E%3F%40%5B%5C%5D%5E%60%7B%7C%7D%7E");
    EXPECT_EQ(formBody({{"k", std::string_view("\0\r\n\x7F", 4)}}), "k=%00%0D%0A%7F");
}

TEST(FormBody, EscapesEachByteOfTextBeyondASCII) {
    EXPECT_EQ(formBody({{"k", "\xE2\x82\xAC\xF0\x9F\x98\x80"}}), "k=%E2%82%AC%F0%9F%98%80");
}

TEST(FormBody, ReplacesBytesThatAreNotUTF8) { EXPECT_EQ(formBody({{"\xFF", "a\xC3 b"}}), "%EF%BF%BD=a%EF%BF%BD+b"); }

TEST(FormBody, WritesScalarsAsJSONDoesAndNullAsNothing) {
    EXPECT_EQ(formBody({{"a", true}, {"b", false}, {"c", nullptr}, {"d", ""}}), "a=true&b=false&c=&d=");
    EXPECT_EQ(formBody({{"a", -7}, {"b", 1.0}, {"c", 0.1}, {"d", 1e21}, {"e", 18446744073709551615U}}),
              "a=-7&b=1&c=0.1&d=1e%2B21&e=18446744073709551615");
}

TEST(FormBody, PutsNestedNamesInBrackets) {
    EXPECT_EQ(formBody({{"a", DocumentMap{{"c", "2"}, {"b", "1"}}}}), "a[b]=1&a[c]=2");
    EXPECT_EQ(formBody({{"a", DocumentMap{{"b", DocumentMap{{"c", 1}}}}}}), "a[b][c]=1");
}

TEST(FormBody, WritesOnePairAnItem) {
    EXPECT_EQ(formBody({{"a", List{1, "2", nullptr}}}), "a[]=1&a[]=2&a[]=");
    EXPECT_EQ(formBody({{"a", List{DocumentMap{{"b", 1}, {"c", 2}}, List{3}}}}), "a[][b]=1&a[][c]=2&a[][]=3");
}

TEST(FormBody, LeavesOutEmptyMapsAndLists) {
    EXPECT_EQ(formBody({{"a", DocumentMap{}}, {"b", List{}}, {"c", List{List{}}}, {"d", 1}}), "d=1");
}

TEST(FormBody, EscapesBracketsWithinNames) {
    EXPECT_EQ(formBody({{"a[b]", 1}, {"c", DocumentMap{{"[d]", 2}}}}), "a%5Bb%5D=1&c[%5Bd%5D]=2");
}

TEST(FormBody, TakesEmptyNames) {
    EXPECT_EQ(formBody({{"", 1}, {"a", DocumentMap{{"", 2}}}}), "=1&a[]=2");
    EXPECT_EQ(formBody({{"", DocumentMap{{"b", 1}}}}), "[b]=1");
}

TEST(FormBody, IsWrittenToTheDeepestLevel) {
    json::Value deepest = "end";
    for (int i = 0; i < 1000; ++i) deepest = List{deepest};
    const std::string text = formBody({{"a", deepest}});
    EXPECT_EQ(text.size(), 1 + 2 * 1000 + 4u);
    EXPECT_EQ(text.substr(text.size() - 8), "[][]=end");
}

std::string decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            bytes += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            bytes += text[i] == '+' ? ' ' : text[i];
        }
    }
    return bytes;
}

Pairs read(std::string_view form) {
    Pairs pairs;
    while (!form.empty()) {
        const std::string_view pair = form.substr(0, form.find('&'));
        const auto equals = pair.find('=');
        pairs.emplace_back(decoded(pair.substr(0, equals)), decoded(pair.substr(equals + 1)));
        form.remove_prefix(std::min(pair.size() + 1, form.size()));
    }
    return pairs;
}

void addPairs(Pairs& pairs, const std::string& name, const json::Value& value) {
    if (const auto list = value.asList()) {
        for (std::size_t i = 0; i < list->size(); ++i) addPairs(pairs, name + "[]", (*list)[i]);
    } else if (const auto map = value.asObject()) {
        std::map<std::string_view, json::Value> sorted;
        for (const auto& [inner, member] : *map) sorted.emplace(inner, member);
        for (const auto& [inner, member] : sorted) addPairs(pairs, name + "[" + std::string(inner) + "]", member);
    } else if (const auto text = value.asString()) {
        pairs.emplace_back(name, *text);
    } else {
        pairs.emplace_back(name, value.kind() == json::Kind::null ? std::string() : json::print(value));
    }
}

RC_GTEST_PROP(FormBody, IsReadBackAsThePairsItWasMadeOf, (const json::Value& value, const json::Value& other)) {
    const DocumentMap content{{"b=&", value}, {"a +", other}};
    Pairs expected;
    addPairs(expected, "a +", other);
    addPairs(expected, "b=&", value);
    RC_ASSERT(read(formBody(content)) == expected);
}

}  // namespace
}  // namespace quorin::skell
