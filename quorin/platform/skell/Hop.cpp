#include "quorin/platform/skell/Hop.hpp"

#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/skell/Address.hpp"
#include "quorin/platform/skell/Curl.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace quorin::skell {
namespace {

using rawvalues::sameFolded;
using Names = std::span<const std::string_view>;

constexpr std::array<std::string_view, 3> ownNames{"Host", "Content-Length", "Transfer-Encoding"};
constexpr std::array<std::string_view, 4> bodyNames{"Content-Type", "Content-Encoding", "Content-Language",
                                                    "Content-Location"};
constexpr std::array<std::string_view, 2> foreignNames{"User-Agent", "Accept"};

bool isOneOf(std::string_view name, Names names) {
    return std::any_of(names.begin(), names.end(), [&](std::string_view other) { return sameFolded(name, other); });
}

/// RFC 9110 section 5.6.2.
bool isTokenCharacter(char c) {
    return (c >= '0' && c <= '9') || (rawvalues::lower(c) >= 'a' && rawvalues::lower(c) <= 'z')
           || std::string_view("!#$%&'*+-.^_`|~").find(c) != std::string_view::npos;
}

bool isToken(std::string_view text) { return !text.empty() && tellable(text) == text; }

/// RFC 9110 section 5.5: no control character but the tab.
bool isFieldValue(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte < ' ' && c != '\t') || byte == 0x7f;
    });
}

std::string quoted(std::string_view name) { return "\"" + std::string(tellable(name).substr(0, 80)) + "\""; }

std::string begins(std::string_view name) {
    return tellable(name).empty() ? std::string() : " that begins with " + quoted(name);
}

void keepOnly(Hop& hop, Names names) {
    std::erase_if(hop.headers, [&](const auto& header) { return !isOneOf(header.first, names); });
}

/// The method stays, but 303 asks for a GET and 301 and 302 turn a POST into one, as every browser does.
void changeMethod(int status, Hop& hop) {
    const bool becomesGET = (status == 303 && hop.method != HTTPMethod::HEAD)
                            || ((status == 301 || status == 302) && hop.method == HTTPMethod::POST);
    if (!becomesGET) return;
    hop.method = HTTPMethod::GET;
    hop.body = nullptr;
    std::erase_if(hop.headers, [](const auto& header) { return isOneOf(header.first, bodyNames); });
}

/// Another origin learns nothing of what the caller gave to the first: no token, no cookie, no body. What the method
/// was to change is not for that origin either, so it is asked only for content, with 307 and 308 as well.
void enterForeignOrigin(Hop& hop) {
    if (hop.method != HTTPMethod::HEAD) hop.method = HTTPMethod::GET;
    hop.body = nullptr;
    keepOnly(hop, foreignNames);
}

}  // namespace

bool Hop::has(std::string_view name) const {
    return std::any_of(headers.begin(), headers.end(),
                       [&](const auto& header) { return sameFolded(header.first, name); });
}

void Hop::addCookies(foundation::HTTPCookieStorage& storage) {
    if (has("Cookie")) return;
    if (std::string held = storage.cookieHeader(url); !held.empty()) headers["Cookie"] = std::move(held);
}

std::string_view tellable(std::string_view name) {
    std::size_t size = 0;
    while (size < name.size() && isTokenCharacter(name[size])) ++size;
    return name.substr(0, size);
}

bool announcesBody(HTTPMethod method) {
    return method == HTTPMethod::POST || method == HTTPMethod::PUT || method == HTTPMethod::PATCH;
}

std::optional<SkellError> refusal(const Hop& hop) {
    const auto invalid = [&](const std::string& what) {
        return failure(SkellError::Kind::invalidRequest, hop.url, what);
    };
    if (!openCurl()) return failure(SkellError::Kind::network, hop.url, noCurl);
    const auto address = Address::of(hop.url);
    if (!address || address->host.empty())
        return failure(SkellError::Kind::invalidURL, hop.url, "not a URL to request");
    if (!address->isHTTP()) return failure(SkellError::Kind::invalidURL, hop.url, "neither an http nor an https URL");
    for (const auto& [name, value] : hop.headers) {
        if (!isToken(name)) return invalid("a header name" + begins(name) + " is not a token");
        if (isOneOf(name, ownNames)) return invalid("the header " + quoted(name) + " is set by the library alone");
        if (!isFieldValue(value))
            return invalid("the value of the header " + quoted(name) + " has a control character");
    }
    const bool takesBody = hop.method != HTTPMethod::TRACE && hop.method != HTTPMethod::CONNECT;
    if (hop.body && !takesBody) return invalid("a " + std::string(hop.method.rawValue()) + " request with a body");
    return std::nullopt;
}

bool isRedirect(const Response& response) {
    static constexpr std::array<int, 5> followed{301, 302, 303, 307, 308};
    return std::find(followed.begin(), followed.end(), response.status()) != followed.end()
           && !response.header("Location").value_or("").empty();
}

std::optional<SkellError> follow(const Response& response, Hop& hop) {
    const auto refused = [&](std::string_view what) { return failure(SkellError::Kind::redirects, hop.url, what); };
    const auto from = Address::of(hop.url);
    const auto to = from->resolve(*response.header("Location"));
    if (!to) return refused("a redirect that leads nowhere");
    if (!to->isHTTP()) return refused("a redirect to neither http nor https");
    if (from->scheme == "https" && to->scheme != "https") return refused("a redirect from https to http");
    changeMethod(response.status(), hop);
    if (!from->sameOrigin(*to)) enterForeignOrigin(hop);
    hop.url = to->url;
    return std::nullopt;
}

}  // namespace quorin::skell
