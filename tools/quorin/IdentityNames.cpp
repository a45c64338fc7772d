#include "IdentityNames.hpp"

#include "quorin/platform/foundation/Masked.hpp"

#include <algorithm>
#include <array>

namespace quorin::tool {
namespace {

using Manager = ConfigurationManager::Instance;
using Value = std::optional<std::string>;

constexpr std::array<IdentityName, 6> names{{
    {"kova", true, [](Manager& manager, const Value& value) { manager.setKova(value); }},
    {"parentProfileID", false, [](Manager& manager, const Value& value) { manager.setParentProfileID(*value); }},
    {"childProfileID", false, [](Manager& manager, const Value& value) { manager.setChildProfileID(*value); }},
    {"profileJWT", true, [](Manager& manager, const Value& value) { manager.setProfileJWT(value); }},
    {"VEXOMVPD", true, [](Manager& manager, const Value& value) { manager.setVEXOMVPD(value); }},
    {"userAgent", false, [](Manager& manager, const Value& value) { manager.setUserAgent(*value); }},
}};

}  // namespace

const IdentityName* IdentityName::find(std::string_view name) {
    const auto found =
        std::find_if(names.begin(), names.end(), [&](const IdentityName& row) { return row.name == name; });
    return found == names.end() ? nullptr : &*found;
}

std::vector<std::string> IdentityName::all(bool optionalOnly) {
    std::vector<std::string> all;
    for (const IdentityName& row : names) {
        if (row.optional || !optionalOnly) all.emplace_back(row.name);
    }
    return all;
}

json::Value shown(const std::optional<std::string>& secret, bool revealed) {
    if (!secret) return {};
    return revealed ? json::Value(*secret) : json::Value(foundation::masked(*secret));
}

}  // namespace quorin::tool
