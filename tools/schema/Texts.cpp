#include "tools/schema/Texts.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

#include <string>
#include <vector>

namespace quorin::schema {
namespace {

using json::DocumentMap;

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string anyCaseOf(char c) {
    constexpr std::string_view syntax = R"(^$\.*+?()[]{}|)";
    const char small = rawvalues::lower(c);
    if (small != upper(c)) return {'[', small, upper(c), ']'};
    return syntax.find(c) == syntax.npos ? std::string(1, c) : std::string{'\\', c};
}

/// A regular expression of classes and alternatives alone, which all engines read alike.
std::string patternOf(std::span<const std::string_view> texts) {
    std::string pattern;
    for (const std::string_view text : texts) {
        pattern += pattern.empty() ? "^(" : "|";
        for (const char c : text) pattern += anyCaseOf(c);
    }
    return pattern + ")$";
}

}  // namespace

DocumentMap anyCaseOf(std::span<const std::string_view> texts) {
    const json::List listed(std::vector<json::Value>(texts.begin(), texts.end()));
    const DocumentMap newline{{"pattern", "\n"}};  // before one at the end of a text, "$" matches in some engines
    return {{"type", "string"},
            {"anyOf", json::List{DocumentMap{{"enum", listed}}, DocumentMap{{"pattern", patternOf(texts)}}}},
            {"not", newline}};
}

}  // namespace quorin::schema
