#include "tests/faults/Disk.hpp"

#include <algorithm>
#include <random>

namespace quorin::faults {
namespace {

/// Fair enough, and the same everywhere.
std::uint32_t below(std::mt19937& random, std::uint32_t end) { return static_cast<std::uint32_t>(random()) % end; }

}  // namespace

void Disk::begin(const std::string& path, std::string_view content) {
    const auto file = files_.find(path);
    if (file == files_.end() || !file->second.isThere)
        files_.insert_or_assign(path, File{.safe = std::string(content), .isSure = !content.empty()});
}

void Disk::write(const std::string& path, std::size_t offset, std::string_view bytes) {
    files_[path].since.push_back({offset, std::string(bytes)});
}

void Disk::truncate(const std::string& path, std::size_t size) {
    files_[path].since.push_back({.offset = size, .isTruncation = true});
}

void Disk::sync(const std::string& path) {
    File& file = files_[path];
    for (const Change& change : file.since) apply(change, file.safe);
    file.since.clear();
}

void Disk::remove(const std::string& path, bool isDurable) {
    if (isDurable)
        files_.erase(path);
    else
        files_[path].isThere = false;
}

void Disk::syncFolder() {
    std::erase_if(files_, [](const auto& file) { return !file.second.isThere; });
    for (auto& [path, file] : files_) file.isSure = true;
}

void Disk::apply(const Change& change, std::string& content) {
    const std::size_t end = change.offset + change.bytes.size();
    if (change.isTruncation || content.size() < end) content.resize(end);
    std::copy(change.bytes.begin(), change.bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(change.offset));
}

std::map<std::string, std::string> Disk::afterPowerLoss(std::uint32_t seed) const {
    std::mt19937 random(seed);
    const bool isReordered = below(random, 3) == 0;
    const bool isAllLost = below(random, 8) == 0;
    std::map<std::string, std::string> contents;
    for (const auto& [path, file] : files_) {
        if ((!file.isThere || !file.isSure) && below(random, 2) == 0) continue;
        std::vector<Change> changes = isAllLost ? std::vector<Change>() : file.since;
        for (std::size_t i = changes.size(); isReordered && i > 1; --i)
            std::swap(changes[i - 1], changes[below(random, static_cast<std::uint32_t>(i))]);
        std::string& content = contents[path] = file.safe;
        for (Change& change : changes) {
            const std::size_t half = change.bytes.size() / 2;
            switch (below(random, 4)) {
                case 0: continue;
                case 1: change.bytes.resize(half); break;
                case 2: change.bytes.erase(0, half), change.offset += half; break;
                default: break;
            }
            apply(change, content);
        }
    }
    return contents;
}

}  // namespace quorin::faults
