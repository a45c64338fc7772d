#pragma once

#include "quorin/platform/skell/Body.hpp"

#include <memory>
#include <string_view>

namespace quorin::skell {

/// Undoes one content encoding (RFC 9110 section 8.4) piece by piece, in memory that does not depend on the input.
class ContentDecoder {
public:
    enum class Outcome { taken, broken, tooLarge };

    /// What a request offers to understand.
    static constexpr std::string_view offered = "gzip, br";

    /// The decoder for the value of a Content-Encoding header: gzip, x-gzip, br, in any letter case. Null for any
    /// other.
    static std::unique_ptr<ContentDecoder> of(std::string_view encoding);

    virtual ~ContentDecoder() = default;

    virtual Outcome decode(std::string_view encoded, Body& into) = 0;

    /// False when the encoded bytes so far end in the middle.
    virtual bool isComplete() const = 0;
};

}  // namespace quorin::skell
