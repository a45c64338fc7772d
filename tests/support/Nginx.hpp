#pragma once

#include "tests/support/Listener.hpp"

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace quorin::support {

/// A real nginx with a folder, ports and a test authority of its own; it ends with the object.
///
/// On the host "plain", without TLS: /object.json, /list.json, /large.json (gzip), /missing (404), /failing (500 with a
/// JSON object), /moved (301 to /object.json), /circle (302 to itself), /up (302 to "good"). On the hosts "good"
/// (HTTP/2), "expired", "selfsigned" and "wronghost", with the certificates of these names, and "outdated" in TLS 1.1:
/// /object.json, and /down (302 to "plain"). All but "outdated" give back the Cookie header as X-Cookie.
class Nginx {
public:
    /// Ends the program, and says how to get an nginx, when there is none.
    Nginx();
    ~Nginx();
    Nginx(const Nginx&) = delete;
    Nginx& operator=(const Nginx&) = delete;

    std::string url(const std::string& host, std::string_view path) const;

    /// PEM file of the test authority.
    std::string caFile() const { return folder_ / "ca.pem"; }

    static constexpr std::string_view object = R"({"greeting": "hello"})";
    static constexpr std::string_view list = R"([1, 2, 3])";
    static std::string large();

private:
    void writeFiles() const;
    std::string configuration() const;
    void start();

    std::filesystem::path folder_{};
    std::map<std::string, Listener> listeners_{};
    pid_t process_ = -1;
};

}  // namespace quorin::support
