#include "quorin/context/UserAgent.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

#include <algorithm>

namespace quorin::ConfigurationManagerUtils {
namespace {

struct Pieces {
    std::string_view network = "CFNetwork/15.5.0";
    std::string_view kernel = "Darwin/758.4.3";
};

bool containsFolded(std::string_view text, std::string_view lowerCase) {
    const auto same = [](char c, char wanted) { return rawvalues::lower(c) == wanted; };
    return std::search(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(), same) != text.end();
}

Pieces piecesOf(std::string_view existing) {
    Pieces pieces;
    while (!existing.empty()) {
        const std::string_view component = existing.substr(0, existing.find(' '));
        if (containsFolded(component, "cfnetwork")) pieces.network = component;
        if (containsFolded(component, "darwin")) pieces.kernel = component;
        existing.remove_prefix(std::min(component.size() + 1, existing.size()));
    }
    return pieces;
}

}  // namespace

std::string generateUserAgent(std::optional<std::string_view> existing, const Platform& platform) {
    const Pieces pieces = piecesOf(existing.value_or(""));
    std::string systemVersion = platform.device.systemVersion;
    std::replace(systemVersion.begin(), systemVersion.end(), '.', '_');
    const std::string locale = rawvalues::lowered(platform.locale());

    std::string text = appName(platform);
    text.append("/").append(platform.bundle.shortVersion.value_or(""));
    text.append("(").append(platform.device.model);
    text.append("; cpu ").append(platform.device.systemName).append(" ").append(systemVersion);
    text.append(" like mac os x; ").append(locale).append(") ");
    return text.append(pieces.network).append(" ").append(pieces.kernel);
}

std::string appName(const Platform& platform) { return platform.bundle.name.value_or(""); }

}  // namespace quorin::ConfigurationManagerUtils
