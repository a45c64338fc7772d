#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::skell {

/// One line of a header section.
struct HeaderField {
    std::string name{};
    std::string value{};

    bool operator==(const HeaderField&) const = default;
};

/// What a server answered. Immutable and shared: a copy is one count, whatever the size of the body. Any thread may
/// read it.
class Response {
public:
    /// What a response is made of; a test of a host may make one of its own.
    struct Content {
        int status = 0;
        std::vector<HeaderField> headers{};
        std::string url{};
        std::string body{};
    };

    explicit Response(Content content) : content_(std::make_shared<const Content>(std::move(content))) {}

    /// Status code (RFC 9110 section 15) of the final response, whatever it says.
    int status() const { return content_->status; }

    /// The fields as they came, in order and with repetitions; those of the transfer are among them (Content-Encoding,
    /// Content-Length), though the body is decoded.
    const std::vector<HeaderField>& headers() const { return content_->headers; }

    /// First value under `name` in any ASCII letter case, or empty when there is none.
    std::optional<std::string_view> header(std::string_view name) const;

    /// All values under `name` in any ASCII letter case, in order.
    std::vector<std::string_view> allHeaders(std::string_view name) const;

    /// Where the response came from, after all redirects.
    const std::string& url() const { return content_->url; }

    /// Decoded bytes.
    const std::string& body() const { return content_->body; }

private:
    std::shared_ptr<const Content> content_;
};

}  // namespace quorin::skell

#pragma GCC visibility pop
