#include "quorin/context/StoredIdentity.hpp"

#include "quorin/context/PersistenceKeys.hpp"

#include <string_view>
#include <variant>

namespace quorin {
namespace {

std::optional<std::string> textOf(const morr::StoredValue& value) {
    const auto* const text = std::get_if<std::string>(&value);
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<std::string> textIn(const morr::StoredValues& values, std::string_view key) {
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : textOf(found->second);
}

std::optional<std::string> textIn(MorrStandard& store, std::string_view key) {
    const auto value = store.get(key);
    return value ? textOf(*value) : std::nullopt;
}

std::string newParentProfileID(const Platform& platform) { return "p" + platform.uuid(); }

/// The text that is in the store under the key, which is this one where there was none.
std::string claimed(MorrStandard& store, std::string_view key, const std::string& text) {
    return textOf(store.putIfAbsent(text, key)).value_or(text);
}

}  // namespace

StoredIdentity StoredIdentity::readFrom(MorrStandard& store) {
    const morr::StoredValues values = store.all();
    return {.parentProfileID = textIn(values, PersistenceKeys::parentProfileID),
            .childProfileID = textIn(values, PersistenceKeys::childProfileID),
            .profileJWT = textIn(values, PersistenceKeys::profileJWT),
            .kova = textIn(values, PersistenceKeys::kova),
            .domain = textIn(values, PersistenceKeys::domain),
            .vexoMVPD = textIn(values, PersistenceKeys::vexoMVPD)};
}

StoredIdentity StoredIdentity::completedIn(const Platform& platform) {
    MorrStandard& store = *platform.store;
    StoredIdentity stored = readFrom(store);
    auto& parent = stored.parentProfileID;
    if (!parent) parent = claimed(store, PersistenceKeys::parentProfileID, newParentProfileID(platform));
    if (!stored.childProfileID) stored.childProfileID = claimed(store, PersistenceKeys::childProfileID, *parent);
    return stored;
}

namespace ConfigurationManagerUtils {

std::optional<std::string> retrieveKOVA(const Platform& platform) {
    return textIn(*platform.store, PersistenceKeys::kova);
}

std::optional<std::string> retrieveDomain(const Platform& platform) {
    return textIn(*platform.store, PersistenceKeys::domain);
}

std::optional<std::string> retrieveVEXOMVPD(const Platform& platform) {
    return textIn(*platform.store, PersistenceKeys::vexoMVPD);
}

std::optional<std::string> retrieveProfileJWT(const Platform& platform) {
    return textIn(*platform.store, PersistenceKeys::profileJWT);
}

std::string retrieveParentProfileID(const Platform& platform) {
    auto stored = textIn(*platform.store, PersistenceKeys::parentProfileID);
    return stored ? *std::move(stored)
                  : claimed(*platform.store, PersistenceKeys::parentProfileID, newParentProfileID(platform));
}

std::string retrieveChildProfileID(const Platform& platform) {
    auto stored = textIn(*platform.store, PersistenceKeys::childProfileID);
    return stored ? *std::move(stored) : retrieveParentProfileID(platform);
}

std::string generateParentProfileID(const Platform& platform) {
    std::string identifier = newParentProfileID(platform);
    platform.store->put(identifier, PersistenceKeys::parentProfileID);
    return identifier;
}

}  // namespace ConfigurationManagerUtils
}  // namespace quorin
