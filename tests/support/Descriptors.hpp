#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

namespace quorin::support {

/// The descriptors that this process has open.
inline std::size_t openDescriptors() {
    namespace fs = std::filesystem;
    return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

}  // namespace quorin::support
