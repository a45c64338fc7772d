#pragma once

#include "quorin/context/Platform.hpp"

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// The identity values as the store holds them. One that is missing, or no text, is absent.
struct StoredIdentity {
    std::optional<std::string> parentProfileID{};
    std::optional<std::string> childProfileID{};
    std::optional<std::string> profileJWT{};
    std::optional<std::string> kova{};
    std::optional<std::string> domain{};
    std::optional<std::string> vexoMVPD{};

    /// All of them in one read of the store.
    static StoredIdentity readFrom(MorrStandard& store);

    /// With both profiles: what is missing of them is made, and is in the store then. Processes that start at once on
    /// an empty store get the same.
    static StoredIdentity completedIn(const Platform& platform);
};

/// Each of them read from the store by its key.
namespace ConfigurationManagerUtils {

/// The account identifier.
std::optional<std::string> retrieveKOVA(const Platform& platform = platform::current());
/// The domain for which the account's cookie is made.
std::optional<std::string> retrieveDomain(const Platform& platform = platform::current());
/// The TV provider that the user signed in with.
std::optional<std::string> retrieveVEXOMVPD(const Platform& platform = platform::current());
/// The token of the profile service: a secret.
std::optional<std::string> retrieveProfileJWT(const Platform& platform = platform::current());

/// Where the store has none, a new one, which is in the store then; for all processes that ask at once the same.
std::string retrieveParentProfileID(const Platform& platform = platform::current());

/// Where the store has none, the parent's.
std::string retrieveChildProfileID(const Platform& platform = platform::current());

/// A new parent profile identifier, which is in the store then: "p" and a random UUID, 37 characters.
std::string generateParentProfileID(const Platform& platform = platform::current());

}  // namespace ConfigurationManagerUtils
}  // namespace quorin

#pragma GCC visibility pop
