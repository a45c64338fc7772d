#include "quorin/platform/foundation/PercentEscape.hpp"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorin::foundation {
namespace {

constexpr EscapeSet some = EscapeSet::of("!%/ ");

std::string allOfASCII() {
    std::string text;
    for (char c = 0; c < 0x7F; ++c) text += c;
    return text + '\x7F';
}

std::optional<std::string> percentEscaped(std::string_view text, const EscapeSet& set) {
    std::string escaped;
    return appendPercentEscaped(escaped, text, set) ? std::optional(escaped) : std::nullopt;
}

int digit(char c) { return c <= '9' ? c - '0' : c - 'A' + 10; }

/// What a reader of upper-case escapes makes of the text.
std::string unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            bytes += static_cast<char>(digit(text.at(i + 1)) * 16 + digit(text.at(i + 2)));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

TEST(PercentEscape, ReplacesTheCharactersOfTheSet) {
    EXPECT_EQ(percentEscaped("a b/c!100%", some), "a%20b%2Fc%21100%25");
    EXPECT_EQ(percentEscaped("", some), "");
}

TEST(PercentEscape, LeavesEveryOtherASCIICharacter) {
    constexpr EscapeSet none = EscapeSet::of("");
    EXPECT_EQ(percentEscaped(allOfASCII(), none), allOfASCII());
    EXPECT_EQ(percentEscaped("<|^`{}\"\\~\n\x7F", some), "<|^`{}\"\\~\n\x7F");
}

TEST(PercentEscape, ReplacesEachByteOfTextBeyondASCII) {
    EXPECT_EQ(percentEscaped("\xC3\xA9\xE2\x82\xAC", some), "%C3%A9%E2%82%AC");
    EXPECT_EQ(percentEscaped("a\xF0\x9F\x98\x80z", some), "a%F0%9F%98%80z");
}

TEST(PercentEscape, KeepsOnlyWhatIsNamedWhereTheRestIsEscaped) {
    constexpr EscapeSet most = EscapeSet::allBut("az");
    EXPECT_EQ(percentEscaped(std::string_view("\0az\n\x7F", 5), most), "%00az%0A%7F");
}

TEST(PercentEscape, TakesNoTextThatIsNotUTF8) {
    EXPECT_EQ(percentEscaped("\xFF", some), std::nullopt);
    EXPECT_EQ(percentEscaped("a\xC3", some), std::nullopt);
    EXPECT_EQ(percentEscaped("\xED\xA0\x80", some), std::nullopt);
}

TEST(PercentEscape, AddsToATextOrLeavesItAlone) {
    std::string text = "q=";
    EXPECT_TRUE(appendPercentEscaped(text, "a b", some));
    EXPECT_EQ(text, "q=a%20b");
    EXPECT_FALSE(appendPercentEscaped(text, "a\xFF", some));
    EXPECT_EQ(text, "q=a%20b");
}

RC_GTEST_PROP(PercentEscape, CanBeUndoneWhereThePercentSignIsEscaped, ()) {
    const auto piece = rc::gen::element<std::string>("a", "%", "/", " ", "\n", "\xC3\xA9", "\xF0\x9F\x98\x80");
    std::string text;
    for (const std::string& one : *rc::gen::container<std::vector<std::string>>(piece)) text += one;
    RC_ASSERT(unescaped(*percentEscaped(text, some)) == text);
}

}  // namespace
}  // namespace quorin::foundation
