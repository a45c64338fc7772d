#pragma once

#include "quorin/platform/morr/MorrStandard.hpp"

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quorin::morr {

using Kind = Status::Kind;

/// The text under the key, or "(none)".
inline std::string text(MorrStandard& store, std::string_view key) {
    const auto value = store.get(key);
    const auto* held = value ? std::get_if<std::string>(&*value) : nullptr;
    return held ? *held : "(none)";
}

/// What a store opened anew on the file holds under the key.
inline std::string textIn(const std::string& path, std::string_view key) {
    MorrStandard store({.path = path});
    return text(store, key);
}

inline mode_t modeOf(const std::string& path) {
    struct stat facts{};
    return stat(path.c_str(), &facts) == 0 ? facts.st_mode & 07777 : 0;
}

/// The names in a directory that hold the word.
inline std::vector<std::string> namesWith(const std::string& folder, std::string_view word) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename();
        if (name.find(word) != std::string::npos) names.push_back(name);
    }
    return names;
}

}  // namespace quorin::morr
