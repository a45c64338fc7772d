#pragma once

#include "quorin/table/Document.hpp"

#include <memory>
#include <optional>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin {

/// What the wrappers of native values have in common: each refers to one value that never changes, and copies of a
/// wrapper refer to the same one. Any thread may read it.
template <class Native>
class Wrapper {
public:
    explicit Wrapper(Native native) : native_(std::make_shared<const Native>(std::move(native))) {}

    /// Of a value that is owned elsewhere too; null counts as one without any member.
    explicit Wrapper(std::shared_ptr<const Native> native)
        : native_(native ? std::move(native) : std::make_shared<const Native>()) {}

    /// The archived form of the value.
    DocumentMap encode() const { return native_->encode(); }

protected:
    /// A wrapper of the value that was written by `encode`; empty where none can be read.
    template <class Facade>
    static std::optional<Facade> read(const DocumentMap& encoded) {
        std::optional<Native> native = Native::fromEncoded(encoded);
        return native ? std::optional<Facade>(std::move(*native)) : std::nullopt;
    }

    const std::shared_ptr<const Native>& native() const { return native_; }

private:
    std::shared_ptr<const Native> native_;
};

}  // namespace quorin

#pragma GCC visibility pop
