#include "tests/services/requests/Building.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin {
namespace {

/// One row of a table of templates or of queries.
struct URLCase {
    const char* url;
    StringMap pairs;
    const char* expected;
};

class Template : public Building {
protected:
    std::string filled(const std::string& url, const std::optional<StringMap>& mapping) const {
        return built({.requestURL = url, .urlMapping = mapping}).url;
    }
    void expectAll(std::initializer_list<URLCase> cases) const {
        for (const auto& [url, mapping, expected] : cases) EXPECT_EQ(filled(url, mapping), expected) << url;
    }
};

TEST_F(Template, HasItsPlaceholdersFilled) {
    expectAll({
        {"https://h/items/{id}/detail", {{"{id}", "42"}}, "https://h/items/42/detail"},
        {"{a}{b}", {{"{a}", "1"}, {"{b}", "2"}}, "12"},
        {"{id}", {{"{id}", ""}}, ""},
        {"http://h/:id/$x", {{":id", "7"}, {"$x", "y"}}, "http://h/7/y"},
    });
}

TEST_F(Template, StaysWhereAKeyDoesNotOccur) {
    expectAll({
        {"http://h/{id}", {{"{ID}", "42"}}, "http://h/{id}"},
        {"http://h/{id}", {{"{id} ", "42"}}, "http://h/{id}"},
        {"", {{"{id}", "42"}}, ""},
        {"id", {{"identifier", "42"}}, "id"},
        {"http://h/{id}", {}, "http://h/{id}"},
    });
    EXPECT_EQ(filled("http://h/{id}", std::nullopt), "http://h/{id}");
}

TEST_F(Template, HasEveryOccurrenceReplaced) {
    expectAll({
        {"/{id}/{id}?same={id}#{id}", {{"{id}", "42"}}, "/42/42?same=42#42"},
        {"/id/{id}/idle", {{"id", "x"}}, "/x/{x}/xle"},
        {"aaaaa", {{"aa", "b"}}, "bba"},
        {"aaaa", {{"aa", ""}}, ""},
        {"-x-x-", {{"-", "--"}}, "--x--x--"},
    });
}

TEST_F(Template, IsFilledInByteOrderOfTheKeys) {
    expectAll({
        {"{a}", {{"{a}", "{b}"}, {"{b}", "1"}}, "1"},    // a later key sees what an earlier one put there
        {"{b}", {{"{a}", "1"}, {"{b}", "{a}"}}, "{a}"},  // and not the other way round
        {"{a}", {{"{a}", "{"}, {"{", "["}}, "[a}"},      // "{" stands before "{a}"
        {"/{id}/id", {{"id", "x"}, {"{id}", "42"}}, "/{x}/x"},
        {"aXb", {{"ab", "1"}, {"X", ""}}, "1"},  // "X" stands before "ab"
        {"\xC3\xA9z", {{"z", "\xC3\xA9"}, {"\xC3\xA9", "e"}}, "ee"},
        {"{a}{B}", {{"{a}", "{B}"}, {"{B}", "1"}}, "{B}1"},
    });
}

TEST_F(Template, IsNotSearchedAgainForTheSameKey) {
    expectAll({
        {"/{id}", {{"{id}", "{id}"}}, "/{id}"},
        {"/{id}/{id}", {{"{id}", "<{id}{id}>"}}, "/<{id}{id}>/<{id}{id}>"},
        {"xab", {{"x", "xx"}}, "xxab"},
        {"aab", {{"ab", "b"}}, "ab"},  // the text that the replacement makes with its neighbours is no occurrence
    });
}

TEST_F(Template, StaysWithAnEmptyKey) {
    expectAll({
        {"http://h/", {{"", "x"}}, "http://h/"},
        {"", {{"", "x"}}, ""},
        {"http://h/{id}", {{"", "x"}, {"{id}", "42"}}, "http://h/42"},
    });
}

TEST_F(Template, TakesValuesAsTheyAre) {
    expectAll({
        {"/{id}", {{"{id}", "a b/c?d=e&f#%"}}, "/a b/c?d=e&f#%"},
        {"/{id}", {{"{id}", "\xC3\xA9\xFF"}}, "/\xC3\xA9\xFF"},
        {"/{id}", {{"{id}", "$&\\1"}}, "/$&\\1"},
    });
}

TEST_F(Template, IsFilledHoweverOftenAKeyOccurs) {
    constexpr std::size_t count = 8'000'000;
    const std::string url = filled(std::string(count, 'x'), StringMap{{"x", "yz"}});
    EXPECT_EQ(url.size(), 2 * count);
    EXPECT_EQ(url.substr(2 * count - 4), "yzyz");
}

class Query : public Building {
protected:
    std::string with(const std::string& url, const std::optional<StringMap>& pairs) const {
        return built({.requestURL = url, .queryParameters = pairs}).url;
    }
    void expectAll(std::initializer_list<URLCase> cases) const {
        for (const auto& [url, pairs, expected] : cases) EXPECT_EQ(with(url, pairs), expected) << url;
    }
};

TEST_F(Query, IsAddedToTheURL) {
    expectAll({
        {"http://h/p", {{"a", "1"}}, "http://h/p?a=1"},
        {"http://h", {{"a", "1"}}, "http://h?a=1"},
        {"/p", {{"a", "1"}}, "/p?a=1"},
        {"", {{"a", "1"}}, "?a=1"},
        {"/p", {{"q", "a b&c"}, {"b", "\xC3\xA9"}}, "/p?b=%C3%A9&q=a%20b%26c"},
        {"/p", {{"", ""}}, "/p?="},
    });
}

TEST_F(Query, GoesOnWithTheOneThatIsThere) {
    expectAll({
        {"/p?x=2", {{"a", "1"}}, "/p?x=2&a=1"},
        {"/p?", {{"a", "1"}}, "/p?&a=1"},
        {"/p?x=2&", {{"a", "1"}}, "/p?x=2&&a=1"},
        {"/p?a=1", {{"a", "1"}}, "/p?a=1&a=1"},
    });
}

TEST_F(Query, StandsBehindAFragment) {
    expectAll({
        {"http://h/p#f", {{"a", "1"}}, "http://h/p#f?a=1"},
        {"http://h/p?x=2#f", {{"a", "1"}}, "http://h/p?x=2#f&a=1"},
        {"http://h/p#f?x=2", {{"a", "1"}}, "http://h/p#f?x=2?a=1"},
    });
}

TEST_F(Query, IsNotAddedToWhatIsNoURL) {
    for (const std::string url : {"http://h/{x}", "http://h/a b", "http://h/\xC3\xA9", "http://h/%zz", "http://h/%",
                                  "http://h:port/", "/p?{x}"})
        EXPECT_EQ(with(url, StringMap{{"a", "1"}}), url);
}

TEST_F(Query, IsAddedToWhatTheTemplateBecame) {
    EXPECT_EQ(built({.requestURL = "/{id}", .urlMapping = {{{"{id}", "4"}}}, .queryParameters = {{{"a", "{id}"}}}}).url,
              "/4?a={id}");
    EXPECT_EQ(built({.requestURL = "/p{q}", .urlMapping = {{{"{q}", "?x=2"}}}, .queryParameters = {{{"a", "1"}}}}).url,
              "/p?x=2&a=1");
    EXPECT_EQ(built({.requestURL = "/{id}", .urlMapping = {{{"{id}", "a b"}}}, .queryParameters = {{{"a", "1"}}}}).url,
              "/a b");
}

TEST_F(Query, IsAddedForEveryMethod) {
    for (const auto name : HTTPMethod::rawValues) {
        const auto method = *HTTPMethod::fromRawValue(name);
        EXPECT_EQ(built({.requestURL = "/p", .requestMethod = method, .queryParameters = {{{"a", "1"}}}}).url, "/p?a=1")
            << name;
    }
}

TEST_F(Query, IsNotAddedWhereThereIsNoPair) {
    for (const auto& pairs : {std::optional<StringMap>(), std::optional(StringMap()),
                              std::optional(StringMap{{"a", "\xFF"}}), std::optional(StringMap{{"\xFF", "1"}})}) {
        EXPECT_EQ(with("/p", pairs), "/p");
        EXPECT_EQ(with("/p?", pairs), "/p?");
    }
}

}  // namespace
}  // namespace quorin
