#pragma once

#include <unistd.h>

#include <cstddef>
#include <fstream>

namespace quorin::support {

/// Bytes of this process that stand in memory now.
inline std::size_t residentBytes() {
    std::size_t all = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace quorin::support
