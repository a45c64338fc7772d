#include "CurlLine.hpp"

#include "quorin/platform/foundation/Trimmed.hpp"
#include "quorin/platform/skell/ContentDecoder.hpp"
#include "quorin/platform/skell/Hop.hpp"

#include <string_view>

namespace quorin::tool {
namespace {

std::string shellQuoted(std::string_view text) {
    std::string safe = "'";
    for (const char c : text) {
        if (c == '\'')
            safe += "'\\''";
        else
            safe += c;
    }
    return safe + "'";
}

std::string headerOf(std::string_view name, std::string_view value) {
    value = foundation::trimmed(value);
    const std::string line(name);
    return " -H " + shellQuoted(value.empty() ? line + ";" : line + ": " + std::string(value));
}

/// The message as it is sent now.
skell::Hop hopOf(const Skell& request) {
    skell::Hop hop{.method = request.method, .url = request.url, .headers = request.headers};
    const auto transport = request.transport ? *request.transport : skell::Transport::standard();
    if (transport.cookies) hop.addCookies(*transport.cookies);
    return hop;
}

/// Methods that the library sends with a body, if only an empty one.
bool hasContent(const Skell& request) { return request.body || skell::announcesBody(request.method); }

/// curl sends a HEAD with a body only when it takes the method for any word.
std::string methodOf(const Skell& request) {
    if (request.method == HTTPMethod::HEAD && !request.body) return " --head";
    return " -X " + std::string(request.method.rawValue());
}

}  // namespace

std::string curlLine(const Skell& request) {
    const skell::Hop hop = hopOf(request);
    std::string line = "curl -q --globoff" + methodOf(request);
    for (const auto& [name, value] : hop.headers) line += headerOf(name, value);
    if (!hop.has("Accept-Encoding")) line += headerOf("Accept-Encoding", skell::ContentDecoder::offered);
    for (const std::string_view own : {"User-Agent", "Accept", "Content-Type", "Expect"}) {
        const bool isOfContent = own == "Content-Type" || own == "Expect";
        if ((!isOfContent || hasContent(request)) && !hop.has(own))
            line += " -H " + shellQuoted(std::string(own) + ":");
    }
    if (hasContent(request)) line += " --data-raw " + shellQuoted(request.body ? request.body->text() : "");
    return line + " " + shellQuoted(request.url);
}

}  // namespace quorin::tool
