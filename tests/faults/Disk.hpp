#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::faults {

/// What stands on a disk when the power goes: the files as they were at their last sync, and of what was changed since
/// no one knows how much.
class Disk {
public:
    /// A file that is used from now on, with what stands in it safely.
    void begin(const std::string& path, std::string_view content);

    void write(const std::string& path, std::size_t offset, std::string_view bytes);
    void truncate(const std::string& path, std::size_t size);
    void sync(const std::string& path);

    /// One that is not durable may be undone.
    void remove(const std::string& path, bool isDurable);

    /// What was made and removed stays so.
    void syncFolder();

    /// The files after the power was gone, by their paths. What was not synced is there, is half there, is not there,
    /// or came in another order, as the seed decides.
    std::map<std::string, std::string> afterPowerLoss(std::uint32_t seed) const;

    void clear() { files_.clear(); }

private:
    struct Change {
        std::size_t offset = 0;
        std::string bytes{};
        bool isTruncation = false;
    };
    struct File {
        std::string safe{};
        bool isThere = true;  ///< false: only because its removal may be undone
        bool isSure = false;  ///< its name is on the disk
        std::vector<Change> since{};
    };

    static void apply(const Change& change, std::string& content);

    std::map<std::string, File> files_{};
};

}  // namespace quorin::faults
