#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>

namespace quorin::morr {

/// The file of a store in the file system. Nothing here opens the file: closing a descriptor of one's own would drop
/// the locks that the database library holds on it in this process.
struct StoreFile {
    /// Absolute and without symbolic links.
    std::string path{};
    /// Tell the file from another one that takes its name later.
    dev_t device = 0;
    ino_t inode = 0;
    /// Why there is no usable file and what to do, to follow the file's name in a sentence; empty where there is one.
    std::string problem{};
    /// Another process took the file away while it was looked at, as when it sets it aside: to be looked at again.
    bool isGone = false;

    /// Finds the file, or makes it (mode 0600) and the directories above it (0700). Existing ones stay as they are. No
    /// file of a store: a directory, pipe, socket or device, and a symbolic link to any of them, to nothing, or to a
    /// file of another user.
    static StoreFile at(const std::string& path);

    /// True as long as the name leads to this file.
    bool isInPlace() const;

    /// Bytes in the file now; zero where it cannot be asked.
    std::size_t size() const;

    /// True when a journal with content stands beside the file, so the file alone is not the whole database.
    bool hasJournal() const;

    /// True when such a journal is the one of WAL mode, which is never made before the file has content.
    bool hasWriteAheadLog() const;

    /// Renames the file and its journals to `NAME.damaged-TIMESTAMP`, and yields the new name. Empty when another
    /// process has done so first. A failure leaves a `problem`.
    std::string setAside();
};

}  // namespace quorin::morr
