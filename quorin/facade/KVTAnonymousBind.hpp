#pragma once

#include "quorin/context/AnonymousBind.hpp"
#include "quorin/facade/Wrapper.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin {

/// A profile and its token as an object.
class KVTAnonymousBind : public Wrapper<AnonymousBind> {
public:
    static constexpr std::string_view objectName = "KVTAnonymousBind";
    using Wrapper::Wrapper;

    KVTAnonymousBind(std::string profileID, std::string profileJWT)
        : Wrapper(AnonymousBind{.profileID = std::move(profileID), .profileJWT = std::move(profileJWT)}) {}

    /// Of what `encode` wrote; empty where that makes none.
    static std::optional<KVTAnonymousBind> fromEncoded(const DocumentMap& encoded) {
        return read<KVTAnonymousBind>(encoded);
    }

    const AnonymousBind& anonymousBind() const { return *native(); }

    /// Present, as the other one is; either may be empty.
    std::optional<std::string> profileID() const { return anonymousBind().profileID; }
    std::optional<std::string> profileJWT() const { return anonymousBind().profileJWT; }
};

}  // namespace quorin

#pragma GCC visibility pop
