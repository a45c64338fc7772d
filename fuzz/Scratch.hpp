#pragma once

#include "tests/support/TemporaryFolder.hpp"

#include <stdlib.h>

#include <filesystem>

namespace quorin::fuzz {

/// A folder of this process for what a target writes; in memory where the system has a place for that.
inline const support::TemporaryFolder& scratch() {
    static const support::TemporaryFolder folder = [] {
        if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
        return support::TemporaryFolder();
    }();
    return folder;
}

}  // namespace quorin::fuzz
