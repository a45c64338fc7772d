#include "quorin/platform/foundation/SetCookie.hpp"

#include "quorin/platform/foundation/CookieDate.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/foundation/Trimmed.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace quorin::foundation {
namespace {

using SameSite = HTTPCookie::SameSite;

constexpr std::size_t longestNameAndValue = 4096;
constexpr std::size_t longestAttribute = 1024;

struct Pair {
    std::string_view name{};
    std::string_view value{};
};

bool isControlButTab(char c) { return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == '\x7F'; }

bool hasTab(std::string_view text) { return text.find('\t') != text.npos; }

/// Takes what stands before the next ";", and that with it.
std::string_view takePart(std::string_view& text) {
    const auto end = std::min(text.find(';'), text.size());
    const auto part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

/// Cut at the first "="; without one, all is the name.
Pair cut(std::string_view text) {
    const auto sign = std::min(text.find('='), text.size());
    return {.name = trimmed(text.substr(0, sign)), .value = trimmed(text.substr(std::min(sign + 1, text.size())))};
}

/// Section 5.2.2: digits, with "-" before them at most. Saturates beyond 64 bits.
std::optional<std::chrono::seconds> parseMaxAge(std::string_view text) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure == std::errc::invalid_argument || end != text.data() + text.size()) return std::nullopt;
    if (failure == std::errc::result_out_of_range) number = text.starts_with('-') ? Limits::min() : Limits::max();
    return std::chrono::seconds(number);
}

std::optional<SameSite> parseSameSite(std::string_view text) {
    for (const SameSite known : {SameSite::none, SameSite::lax, SameSite::strict}) {
        if (rawvalues::sameFolded(HTTPCookie::nameOf(known), text)) return known;
    }
    return std::nullopt;
}

/// An attribute by its name in any letter case, and what it does. A later one takes the place of an earlier one.
struct AttributeRow {
    std::string_view name;
    void (*apply)(SetCookie& cookie, std::string_view value);
};

constexpr std::array attributes{
    AttributeRow{"Expires",
                 [](SetCookie& cookie, std::string_view value) {
                     if (const auto moment = cookieDate(value)) cookie.expires = moment;
                 }},
    AttributeRow{"Max-Age",
                 [](SetCookie& cookie, std::string_view value) {
                     if (const auto age = parseMaxAge(value)) cookie.maxAge = age;
                 }},
    AttributeRow{"Domain",
                 [](SetCookie& cookie, std::string_view value) {
                     if (!value.empty()) cookie.domain = value.substr(value.starts_with('.') ? 1 : 0);
                 }},
    AttributeRow{"Path",
                 [](SetCookie& cookie, std::string_view value) {
                     cookie.path = value.starts_with('/') ? value : std::string_view();
                 }},
    AttributeRow{"Secure", [](SetCookie& cookie, std::string_view) { cookie.isSecure = true; }},
    AttributeRow{"HttpOnly", [](SetCookie& cookie, std::string_view) { cookie.isHTTPOnly = true; }},
    AttributeRow{"SameSite", [](SetCookie& cookie, std::string_view value) { cookie.sameSite = parseSameSite(value); }},
};

void apply(const Pair& attribute, SetCookie& cookie) {
    if (attribute.value.size() > longestAttribute) return;
    const auto* const row = std::ranges::find_if(
        attributes, [&](const auto& each) { return rawvalues::sameFolded(each.name, attribute.name); });
    if (row != attributes.end()) row->apply(cookie, attribute.value);
}

}  // namespace

std::optional<SetCookie> SetCookie::parse(std::string_view text) {
    if (std::ranges::any_of(text, isControlButTab)) return std::nullopt;
    const auto first = takePart(text);
    const auto [name, value] = cut(first);
    if (first.find('=') == first.npos || name.empty() || name.size() + value.size() > longestNameAndValue)
        return std::nullopt;
    SetCookie cookie{.name = name, .value = value};
    while (!text.empty()) apply(cut(takePart(text)), cookie);
    // Within a name or a value a tab would be a control character of the header, and no URL has a path with one.
    if (hasTab(name) || hasTab(value) || hasTab(cookie.path)) return std::nullopt;
    return cookie;
}

}  // namespace quorin::foundation
