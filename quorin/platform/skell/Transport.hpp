#pragma once

#include "quorin/platform/foundation/HTTPCookieStorage.hpp"

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#pragma GCC visibility push(default)

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

    /// Where cookies are kept. Each hop, redirects included, sends what it holds for its URL and keeps what the
    /// response sets. It sends none where the request has a Cookie header of its own, nor where a redirect led to
    /// another port or scheme of the first host. Null: no cookies are sent or kept.
    std::shared_ptr<foundation::HTTPCookieStorage> cookies = foundation::HTTPCookieStorage::shared();

    /// What requests use that name no transport of their own. Any thread.
    static Transport standard();
    static void setStandard(Transport transport);
};

}  // namespace quorin::skell

#pragma GCC visibility pop
