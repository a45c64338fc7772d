#include "quorin/platform/json/Parse.hpp"

#include "tests/platform/json/AnyValue.hpp"
#include "tests/platform/json/Parsed.hpp"
#include "tests/support/OtherParser.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>

namespace quorin::json {
namespace {

void expectSameVerdict(const std::string& text) {
    const ParseResult result = parse(text);
    const auto other = readByOther(text);
    RC_ASSERT(static_cast<bool>(result) == other.has_value());
    if (result) RC_ASSERT(sameTree(result.value()->node(), *other));
    if (!result) RC_ASSERT(result.error()->offset <= text.size());
}

/// `text` with one piece of it cut out, doubled or replaced by a piece of syntax.
std::string mutated(std::string text) {
    const auto from = *rc::gen::inRange<std::size_t>(0, text.size() + 1);
    const auto size = *rc::gen::inRange<std::size_t>(0, std::min<std::size_t>(4, text.size() - from) + 1);
    const auto piece = *rc::gen::element<std::string>(
        "", "", "{", "}", "[", "]", ",", ":", "\"", "\\", "\\u", "\\ud83d", "\\ude00", "\\u0000", "-", "+", ".", "e",
        "E9", "0", "1", "18446744073709551616", "1e400", "1e-400", "true", "null", "nan", " ", "\n", "\t", "\x01",
        "\x7F", "\xFF", "\xC3", "\xA9", "\xC3\xA9", "\xEF\xBB\xBF", "/", "'", "a", "\"a\":1,", ",[]",
        std::string(1, '\0'));
    return text.replace(from, size, piece);
}

RC_GTEST_PROP(Differential, VerdictsOnMutatedTextsAgree, ()) {
    std::string text = print(*rc::gen::arbitrary<Value>(), *rc::gen::element(Layout::compact, Layout::indented));
    const int mutations = *rc::gen::inRange(0, 5);
    for (int i = 0; i < mutations; ++i) text = mutated(text);
    RC_LOG() << text << '\n';
    expectSameVerdict(text);
}

RC_GTEST_PROP(Differential, VerdictsOnShortTextsAgree, ()) {
    std::string text;
    const int pieces = *rc::gen::inRange(1, 8);
    for (int i = 0; i < pieces; ++i) text = mutated(text);
    RC_LOG() << text << '\n';
    expectSameVerdict(text);
}

RC_GTEST_PROP(Differential, VerdictsOnNumbersAgree, ()) {
    const auto character = rc::gen::element('0', '0', '1', '5', '9', '9', '-', '+', '.', 'e', 'E');
    const auto text = *rc::gen::container<std::string>(character);
    RC_LOG() << text << '\n';
    expectSameVerdict(text);
    expectSameVerdict("[" + text + "]");
}

RC_GTEST_PROP(Differential, VerdictsOnStringsAgree, ()) {
    const auto piece = rc::gen::element<std::string>("\\u", "\\ud8", "\\udc", "d83d", "de00", "00", "\\", "n", "/", "a",
                                                     "\xC3\xA9", "\xED", "\xA0\x80", "\xF0\x9F", "\x98\x80", "\"");
    std::string text = "\"";
    for (const std::string& one : *rc::gen::resize(10, rc::gen::container<std::vector<std::string>>(piece)))
        text += one;
    RC_LOG() << text << '\n';
    expectSameVerdict(text + "\"");
}

}  // namespace
}  // namespace quorin::json
