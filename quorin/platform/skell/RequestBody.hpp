#pragma once

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/platform/skell/RequestBodyType.hpp"

#include <memory>
#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin::skell {

/// What a request sends: a map written as JSON, XML or a form, or a host's own bytes. It never changes and is written
/// once, when it is made; a copy is one count, and sending it copies nothing. Any thread may read it.
class RequestBody {
public:
    /// `content` as its type writes it. JSON is the canonical compact form; for the others see `formBody` and
    /// `xmlBody`.
    explicit RequestBody(RequestBodyType type, const json::DocumentMap& content = {});

    /// Bytes that are sent as they stand.
    static RequestBody bytes(std::string text);

    /// Absent for bytes.
    std::optional<RequestBodyType> type() const { return parts_->type; }

    /// What was written; empty for bytes.
    const json::DocumentMap& content() const { return parts_->content; }

    /// Exactly what is sent; it lives as long as any copy of the body.
    const std::string& text() const { return parts_->text; }

    /// The same, for those who outlive the body.
    std::shared_ptr<const std::string> sharedText() const { return {parts_, &parts_->text}; }

private:
    struct Parts {
        std::optional<RequestBodyType> type{};
        json::DocumentMap content{};
        std::string text{};
    };
    explicit RequestBody(Parts parts);

    std::shared_ptr<const Parts> parts_;
};

}  // namespace quorin::skell

#pragma GCC visibility pop
