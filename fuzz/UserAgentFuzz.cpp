// A user agent that exists in the first line, and in the next ones what the app and its machine say of themselves: what
// is made of them is what a plain reading of the rules makes.
#include "quorin/context/UserAgent.hpp"

#include "fuzz/Fuzz.hpp"
#include "fuzz/Manager.hpp"

namespace quorin::fuzz {
namespace {

/// The last of the words between blanks that has `mark` in it, or `otherwise`.
std::string lastWith(const std::string& mark, std::string_view words, std::string otherwise) {
    while (!words.empty()) {
        const Halves cut(words, ' ');
        if (lowered(cut.first).find(mark) != std::string::npos) otherwise = cut.first;
        words = cut.second;
    }
    return otherwise;
}

void check(std::string_view input) {
    Lines lines(input);
    const std::string existing = lines.next();
    Platform platform = steadyPlatform();
    const std::string name = lines.next(), version = lines.next(), locale = lines.next();
    platform.bundle = {name.empty() ? std::nullopt : std::optional(name), version};
    platform.locale = [locale] { return locale; };
    platform.device = {lines.next(), lines.next(), lines.next()};

    std::string system = platform.device.systemVersion;
    std::replace(system.begin(), system.end(), '.', '_');
    const std::string front = name + "/" + version + "(" + platform.device.model + "; cpu " + platform.device.systemName
                              + " " + system + " like mac os x; " + lowered(locale) + ") ";
    const std::string back =
        lastWith("cfnetwork", existing, "CFNetwork/15.5.0") + " " + lastWith("darwin", existing, "Darwin/758.4.3");
    require(ConfigurationManagerUtils::generateUserAgent(existing, platform) == front + back,
            "the pieces are in place");
    const bool hasPiece = lowered(existing).find("darwin") != std::string::npos
                          || lowered(existing).find("cfnetwork") != std::string::npos;
    require(hasPiece || ConfigurationManagerUtils::generateUserAgent({}, platform) == front + back,
            "nothing else of what exists is kept");

    ConfigurationManager::Instance manager(platform);
    manager.setUserAgent(existing);
    const std::string made = ConfigurationManagerUtils::generateUserAgent(existing, manager.platform());
    require(manager.userAgent() == made, "a manager keeps what is made");
    require(manager.defaultHeaders().find("User-Agent")->second == made, "every request bears it");
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
