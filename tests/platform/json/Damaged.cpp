#include "tests/platform/json/Damaged.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace quorin::json {
namespace {

using namespace std::string_view_literals;

constexpr std::array fragments{
    "{"sv, "}"sv, "["sv, "]"sv, ","sv, ":"sv, "\""sv, "\\"sv, "/"sv, "'"sv, " "sv, "\n"sv, "\x01"sv, "\0"sv, "-"sv,
    "+"sv, "."sv, "e"sv, "E9"sv, "0"sv, "1"sv, "18446744073709551616"sv, "1e400"sv, "-1e309"sv, "1e-400"sv, "01"sv,
    "1."sv, ".5"sv, "0x1"sv, "true"sv, "nul"sv, "NaN"sv, "Infinity"sv, "\"a\":1,"sv, ",[]"sv, ",]"sv, "//"sv, "\\u"sv,
    "\\ud83d"sv, "\\ude00"sv, "\\u0000"sv, "\\x"sv, "\x7F"sv, "\xEF\xBB\xBF"sv, "\xC3\xA9"sv,
    // No UTF-8: a byte that never stands in it, a lone follower, a beginning alone, forms too long, a surrogate, a
    // character beyond the last.
    "\xFF"sv, "\xA9"sv, "\xC3"sv, "\xE2\x82"sv, "\xC0\x80"sv, "\xE0\x80\x80"sv, "\xED\xA0\x80"sv, "\xF4\x90\x80\x80"sv};

using Token = std::pair<std::size_t, std::size_t>;  // where it begins, and its bytes

/// Strings, words with numbers, and single signs; near enough in a text that is already damaged.
std::vector<Token> tokensOf(std::string_view text) {
    constexpr std::string_view blanks = " \n\r\t";
    constexpr std::string_view ends = "{}[],:\" \n\r\t";
    std::vector<Token> tokens;
    for (std::size_t at = text.find_first_not_of(blanks); at < text.size();) {
        const std::size_t last = text[at] == '"' ? text.find('"', at + 1) : text.find_first_of(ends, at + 1) - 1;
        const std::size_t end = ends.find(text[at]) < 6 ? at + 1 : std::min(last, text.size() - 1) + 1;
        tokens.emplace_back(at, end - at);
        at = text.find_first_not_of(blanks, end);
    }
    return tokens;
}

std::string withTokensExchanged(const std::string& text, Random& random) {
    const std::vector<Token> tokens = tokensOf(text);
    if (tokens.size() < 2) return text;
    auto first = tokens[random() % tokens.size()];
    auto second = tokens[random() % tokens.size()];
    if (second < first) std::swap(first, second);
    std::string_view rest = text;
    std::string exchanged(rest.substr(0, first.first));
    exchanged += rest.substr(second.first, second.second);
    if (first != second) {
        const std::size_t between = first.first + first.second;
        exchanged += rest.substr(between, second.first - between);
        exchanged += rest.substr(first.first, first.second);
    }
    return exchanged += rest.substr(second.first + second.second);
}

}  // namespace

std::string damaged(std::string text, Random& random) {
    const std::size_t at = random() % (text.size() + 1);
    const std::size_t bytes = std::min<std::size_t>(1 + random() % 4, text.size() - at);
    switch (random() % 8) {
        case 0:
            if (at < text.size()) text[at] = static_cast<char>(text[at] ^ 1 << random() % 8);
            return text;
        case 1: return text.substr(0, at);
        case 2: return text.insert(at, 1, static_cast<char>(random() % 256));
        case 3: return text.erase(at, bytes);
        case 4: return text.insert(at, text.substr(at, bytes));
        case 5: return withTokensExchanged(text, random);
        case 6: return text.insert(at, fragments[random() % fragments.size()]);
        default: return text.replace(at, bytes, fragments[random() % fragments.size()]);
    }
}

}  // namespace quorin::json
