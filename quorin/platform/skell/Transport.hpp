#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quorin::skell {

/// How requests travel. The times must be above zero; a request with others fails with `invalidRequest`.
struct Transport {
    std::chrono::milliseconds connectTimeout{10'000};  ///< of each connection, name resolution and TLS included
    std::chrono::milliseconds totalTimeout{30'000};    ///< from subscription to the last byte, redirects included
    std::size_t maxBody = 16 * 1024 * 1024;            ///< bytes after decoding
    int maxRedirects = 10;

    /// PEM file of the authorities to trust instead of the system's.
    std::optional<std::string> caFile{};

    /// URL of a proxy for every request, or empty text for none. Absent: the environment decides (`http_proxy`,
    /// `https_proxy`, `all_proxy`, `no_proxy`).
    std::optional<std::string> proxy{};

    /// Gives the `Cookie` value for one hop to `url`, or empty text for none. Asked before each hop, redirects
    /// included, unless the request has a Cookie header of its own there. Called on the request thread.
    std::function<std::string(const std::string& url)> cookiesFor{};

    /// Takes the `Set-Cookie` values of one hop's response, redirects included, in order. Called on the request thread,
    /// before the next hop and before the response is delivered, and only when there are any.
    std::function<void(const std::string& url, const std::vector<std::string>& setCookies)> takeCookies{};

    /// What requests use that name no transport of their own. Any thread.
    static Transport standard();
    static void setStandard(Transport transport);
};

}  // namespace quorin::skell
