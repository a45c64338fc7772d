#include "quorin/platform/morr/MorrStandard.hpp"

#include <errno.h>
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace quorin {
namespace {

constexpr std::string_view fileName = "store.db";

std::string homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home == '/') return home;
    std::array<char, 16384> room;
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, room.data(), room.size(), &found) != 0 || !found) return {};
    return found->pw_dir && *found->pw_dir == '/' ? found->pw_dir : "";
}

std::string dataFolder() {
    if (const char* folder = std::getenv("XDG_DATA_HOME"); folder && *folder == '/') return folder;
    std::string home = homeFolder();
    return home.empty() ? home : home + "/.local/share";
}

/// One name of a directory for each name of an app, whatever it holds.
std::string folderName(std::string_view appName) {
    const bool isOfDots = appName == "." || appName == "..";
    std::string name;
    for (const char c : appName) {
        if (c == '/') {
            name += "%2F";
        } else if (c == '%') {
            name += "%25";
        } else if (c == '\0') {
            name += "%00";
        } else if (isOfDots) {
            name += "%2E";
        } else {
            name += c;
        }
    }
    return name;
}

}  // namespace

std::string MorrStandard::defaultPath(std::string_view bundleName) {
    std::string path = dataFolder();
    if (path.empty()) return std::string(morr::memoryPath);
    path += '/';
    path += folderName(bundleName.empty() ? program_invocation_short_name : bundleName);
    path += '/';
    path += fileName;
    return path;
}

}  // namespace quorin
