#pragma once

#include "quorin/platform/brule/Object.hpp"

#include <optional>
#include <string>

namespace quorin::c {

/// What a host is shown of an object that a stream delivers: a text in the place of an identity value, which may be
/// removed, and nothing then; any other object as it is.
inline std::optional<Object> shown(const Object& object) {
    const auto identity = object.as<std::optional<std::string>>();
    if (!identity) return object;
    return *identity ? std::optional<Object>(**identity) : std::nullopt;
}

}  // namespace quorin::c
