// A URL in the first line, a parameter in the second, and in the further ones "TEXT=REPLACEMENT" for a template or
// "&NAME=VALUE" for the query: what comes of them is what plain rules on the texts make of them.
#include "quorin/platform/foundation/URL.hpp"
#include "quorin/services/requests/Skell.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include "fuzz/Fuzz.hpp"
#include "fuzz/Manager.hpp"

#include <optional>

namespace quorin::fuzz {
namespace {

using foundation::URL;

constexpr std::string_view urlCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~:/?#[]@!$&'()*+,;=%";

bool isHex(char c) { return std::string_view("0123456789abcdefABCDEF").find(c) != std::string_view::npos; }

bool hasEveryEscapeWhole(std::string_view text) {
    for (auto at = text.find('%'); at != text.npos; at = text.find('%', at + 1)) {
        if (at + 2 >= text.size() || !isHex(text[at + 1]) || !isHex(text[at + 2])) return false;
    }
    return true;
}

/// RFC 3986 appendix B: the delimiters alone say where the parts are.
void checkParts(std::string_view text, const URL& url) {
    require(text.find_first_not_of(urlCharacters) == text.npos, "a URL has the characters of one");
    require(hasEveryEscapeWhole(text), "an escape has two digits");
    const std::string_view whole = text.substr(0, text.find('#'));
    const auto mark = whole.find('?');
    require(url.query.has_value() == (mark != whole.npos), "a query is what stands behind the first ?");
    if (url.query) require(*url.query == whole.substr(mark + 1), "the query is all of it");
    std::string_view front = whole.substr(0, mark);
    const auto colon = front.find(':');
    const bool hasScheme = colon != front.npos && front.find('/') > colon;
    require(url.scheme.has_value() == hasScheme, "a scheme ends with the first colon");
    if (hasScheme) require(*url.scheme == lowered(front.substr(0, colon)), "the scheme is all of it");
    if (hasScheme) front.remove_prefix(colon + 1);
    require(url.host.has_value() == front.starts_with("//"), "a host stands behind //");
    if (url.host) front.remove_prefix(std::min(front.find('/', 2), front.size()));
    require(url.path == front, "the path is what is left");
}

void checkAppend(const std::string& text, const std::string& param) {
    const auto url = URL::parse(text);
    if (url) checkParts(text, *url);
    std::string longer = text;
    foundation::append(longer, param);
    require(longer == (!url ? text : text + (url->query ? "&" : "?") + param), "a parameter goes to the end");
}

/// Every place of `key`, left to right, and none within what was put there.
std::string replaced(std::string_view text, std::string_view key, std::string_view value) {
    std::string result;
    while (!text.empty()) {
        const bool isKey = !key.empty() && text.starts_with(key);
        result += isKey ? value : text.substr(0, 1);
        text.remove_prefix(isKey ? key.size() : 1);
    }
    return result;
}

void checkBuilt(const std::string& text, const StringMap& mapping, const StringMap& query) {
    static const auto& manager = *new ConfigurationManager::Instance(steadyPlatform());
    std::string expected = text;
    for (const auto& [key, value] : mapping) expected = replaced(expected, key, value);
    const auto pairs = ConfigurationManagerUtils::urlEncode(query);
    if (pairs && URL::parse(expected)) expected += (URL::parse(expected)->query ? "&" : "?") + *pairs;
    const Skell built = Skell::build({.requestURL = text, .urlMapping = mapping, .queryParameters = query}, manager);
    require(built.url == expected, "a template is filled key by key and then gets the query");
    if (!built.refusal())  // brackets in a path or a query are common, and nothing else may stand there
        require(built.url.find_first_not_of(urlCharacters) == std::string::npos && hasEveryEscapeWhole(built.url),
                "what can be sent has the characters of a URL");
}

void check(std::string_view input) {
    Lines lines(input);
    const std::string url = lines.next();
    checkAppend(url, lines.next());
    StringMap mapping, query;
    while (!lines.isAtEnd()) {
        const std::string line = lines.next();
        const bool isPair = line.starts_with('&');
        const Halves halves(std::string_view(line).substr(isPair ? 1 : 0), '=');
        (isPair ? query : mapping)[std::string(halves.first)] = halves.second;
    }
    checkBuilt(url, mapping, query);
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size <= 4096) quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
