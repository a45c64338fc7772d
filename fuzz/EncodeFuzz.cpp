// Lines "NAME=VALUE": as a query, as a form and escaped by any set, the texts decode back, and what is written has the
// characters that its rules allow.
#include "quorin/platform/foundation/PercentEscape.hpp"
#include "quorin/platform/foundation/UTF8.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/UTF8.hpp"
#include "quorin/platform/skell/FormBody.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include "fuzz/Fuzz.hpp"

#include <vector>

namespace quorin::fuzz {
namespace {

constexpr std::string_view escapedInQuery = "!*'();:@&=+$,/?%#[] ";
constexpr std::string_view keptInForms = "*-._0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view digits = "0123456789ABCDEF";

/// Undoes the escapes, each of which has two upper-case digits.
std::string decoded(std::string_view text, bool hasPlus) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            plain += hasPlus && text[i] == '+' ? ' ' : text[i];
            continue;
        }
        const auto high = i + 2 < text.size() ? digits.find(text[i + 1]) : digits.npos;
        const auto low = high != digits.npos ? digits.find(text[i + 2]) : digits.npos;
        require(low != digits.npos, "an escape has two digits");
        plain += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return plain;
}

/// The pairs of a query or a form, in their order, as they stand.
std::vector<Halves> pairsIn(std::string_view text) {
    std::vector<Halves> pairs;
    while (!text.empty()) {
        const Halves cut(text, '&');
        pairs.emplace_back(cut.first, '=');
        text = cut.second;
    }
    return pairs;
}

void checkQuery(const StringMap& texts) {
    StringMap expected;
    for (const auto& [name, value] : texts) {
        if (json::isUTF8(name) && json::isUTF8(value)) expected[name] = value;
    }
    const auto encoded = ConfigurationManagerUtils::urlEncode(texts);
    require(encoded.has_value() == !expected.empty(), "a query is there where a pair is");
    const std::string query = encoded.value_or("");
    StringMap found;
    for (const auto& [name, value] : pairsIn(query)) {
        for (const char c : std::string(name) + std::string(value)) {
            require(static_cast<unsigned char>(c) < 0x80, "a query is ASCII");
            require(c == '%' || escapedInQuery.find(c) == escapedInQuery.npos, "what is escaped does not stand");
        }
        found[decoded(name, false)] = decoded(value, false);
    }
    require(found == expected, "a query decodes back");
}

void checkForm(const StringMap& texts) {
    std::vector<json::DocumentMap::Member> members;
    StringMap expected;
    for (const auto& [name, value] : texts) {
        if (!json::isUTF8(name) || !json::isUTF8(value)) continue;
        members.emplace_back(name, value);
        expected[name] = value;
    }
    const std::string form = skell::formBody(json::DocumentMap(members));
    StringMap found;
    for (const auto& [name, value] : pairsIn(form)) found[decoded(name, true)] = decoded(value, true);
    require(found == expected, "a form decodes back");
}

/// Whatever an object holds, its form has the characters of one, and every pair is whole.
void checkAnyForm(std::string_view text) {
    const auto parsed = json::parse(text);
    const auto object = parsed.value() ? parsed.value()->asObject() : std::nullopt;
    if (!object) return;
    const std::string form = skell::formBody(*object);
    for (const auto& [name, value] : pairsIn(form)) {
        for (const char c : std::string(name) + std::string(value))
            require(
                keptInForms.find(c) != keptInForms.npos || std::string_view("%+[]").find(c) != std::string_view::npos,
                "a form has its own characters");
        require(json::isUTF8(decoded(name, true)) && json::isUTF8(decoded(value, true)), "a form is UTF-8");
    }
}

/// The first text names the characters that are escaped, or with "^" before them those that are not.
void checkEscapes(std::string_view set, std::string_view text) {
    using foundation::EscapeSet;
    const bool isKept = set.starts_with('^');
    std::string named;
    for (const char c : set.substr(isKept ? 1 : 0)) {
        if (static_cast<unsigned char>(c) < 0x80 && c != '%') named += c;
    }
    if (!isKept) named += '%';
    std::string target = "before";
    const auto escapes = isKept ? EscapeSet::allBut(named) : EscapeSet::of(named);
    const bool isDone = foundation::appendPercentEscaped(target, text, escapes);
    require(isDone == json::isUTF8(text) && isDone == foundation::isUTF8(text), "UTF-8 alone is escaped");
    require(target.starts_with("before"), "what stood before stays");
    const auto added = std::string_view(target).substr(6);
    require(decoded(added, false) == (isDone ? text : ""), "an escaped text decodes back");
    for (const char c : added)
        require(c == '%' || digits.find(c) != digits.npos || (named.find(c) != named.npos) == isKept,
                "what is escaped does not stand");
}

void check(std::string_view input) {
    checkAnyForm(input);
    StringMap texts;
    for (Lines lines(input); !lines.isAtEnd();) {
        const std::string line = lines.next();
        const Halves halves(line, '=');
        checkEscapes(halves.first, halves.second);
        texts[std::string(halves.first)] = halves.second;
    }
    checkQuery(texts);
    checkForm(texts);
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
