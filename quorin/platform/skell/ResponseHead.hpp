#pragma once

#include "quorin/platform/skell/Response.hpp"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quorin::skell {

/// The status line and the header fields of a response, line by line as they arrive.
class ResponseHead {
public:
    /// More than this of status lines, header and trailer fields together is no sensible response.
    static constexpr std::size_t maxBytes = 256 * 1024;

    /// A line with its end; the empty one ends the head. Interim responses (RFC 9110 section 15.2) are dropped for the
    /// next, trailer fields are passed over. False when there is too much.
    bool take(std::string_view line);

    bool isComplete() const { return isComplete_; }
    int status() const { return status_; }

    /// False when the lengths contradict each other (RFC 9112 section 6.3).
    bool hasOneLength() const;

    /// What Content-Length announces, if it can be read.
    std::optional<std::size_t> contentLength() const;

    /// The Content-Encoding, empty text for none.
    std::string contentEncoding() const;

    std::vector<HeaderField> takeFields() { return std::move(fields_); }

private:
    void takeStatusLine(std::string_view line);
    void takeField(std::string_view line);

    std::size_t bytes_ = 0;
    int status_ = 0;
    bool isComplete_ = false;
    std::vector<HeaderField> fields_{};
};

}  // namespace quorin::skell
