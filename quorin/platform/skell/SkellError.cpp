#include "quorin/platform/skell/SkellError.hpp"

#include <algorithm>

namespace quorin {
namespace {

// In the order of the kinds.
constexpr std::array<std::string_view, 12> advices{
    "give a whole http or https URL in which special characters are percent-escaped",
    "correct the request; nothing was sent",
    "check the spelling of the host and the name service",
    "check host, port and proxy, and that the service is running",
    "check the server's certificate, the clock and the file of trusted authorities",
    "try again, or allow the request more time",
    "send the request before the process exits",
    "allow larger bodies if this size is expected",
    "request the final address directly, or correct the server's redirects",
    "look at the status, and at what the service expects of the request",
    "try again; if it persists, look at the server and what stands between",
    "look at what the server sends",
};
static_assert(advices.size() == SkellError::names.size());

bool isAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isScheme(std::string_view text) {
    return !text.empty() && isAlpha(text.front()) && std::all_of(text.begin(), text.end(), [](char c) {
        return isAlpha(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
    });
}

std::string_view afterLast(std::string_view text, char mark) {
    const auto at = text.rfind(mark);
    return at == text.npos ? text : text.substr(at + 1);
}

/// A colon that no port follows may stand in a user info that was cut off by a character that ends it.
bool mayHoldUserInfo(std::string_view authority) {
    const auto bracket = authority.rfind(']');
    const auto colon = authority.find(':', bracket == authority.npos ? 0 : bracket);
    if (colon == authority.npos) return false;
    const auto port = authority.substr(colon + 1);
    return !std::all_of(port.begin(), port.end(), isDigit);
}

std::string printable(std::string text) {
    std::replace_if(text.begin(), text.end(), [](char c) { return c <= ' ' || c > '~'; }, '?');
    return text;
}

}  // namespace

std::string SkellError::description() const {
    return std::string(errorName) + " " + std::string(name(kind)) + ": " + message;
}

namespace skell {

std::string redacted(std::string_view url) {
    const auto kept = url.substr(0, url.find_first_of("?#"));
    const auto mark = kept.find("://");
    if (mark == kept.npos || !isScheme(kept.substr(0, mark))) return printable(std::string(afterLast(kept, '@')));

    std::string result(kept.substr(0, mark + 3));
    const auto start = std::min(kept.find_first_not_of('/', mark + 3), kept.size());
    const auto rest = kept.substr(start);
    const auto slash = std::min(rest.find_first_of("/\\"), rest.size());
    const auto authority = afterLast(rest.substr(0, slash), '@');
    if (mayHoldUserInfo(authority)) return printable(std::move(result));
    return printable(std::move(result.append(authority).append(rest.substr(slash))));
}

SkellError failure(SkellError::Kind kind, std::string_view url, std::string_view what) {
    SkellError error{.kind = kind, .url = redacted(url)};
    error.message.append(what).append(": ").append(error.url).append("; ");
    error.message.append(advices[static_cast<std::size_t>(kind)]);
    return error;
}

}  // namespace skell
}  // namespace quorin
