#pragma once

#include "quorin/context/AnonymousBind.hpp"
#include "quorin/facade/Wrapper.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quorin {

/// A profile and its token as an object.
class KVTAnonymousBind : public Wrapper<KVTAnonymousBind, AnonymousBind> {
public:
    static constexpr std::string_view objectName = "KVTAnonymousBind";
    using Wrapper::Wrapper;

    KVTAnonymousBind(std::string profileID, std::string profileJWT)
        : Wrapper(AnonymousBind{.profileID = std::move(profileID), .profileJWT = std::move(profileJWT)}) {}

    const AnonymousBind& anonymousBind() const { return *native(); }

    /// Present, as the other one is; either may be empty.
    std::optional<std::string> profileID() const { return anonymousBind().profileID; }
    std::optional<std::string> profileJWT() const { return anonymousBind().profileJWT; }
};

}  // namespace quorin
