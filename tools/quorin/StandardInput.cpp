#include "StandardInput.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace quorin::tool {
namespace {

bool writeAll(int file, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t count = write(file, bytes, size);
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes += count, size -= static_cast<std::size_t>(count);
    }
    return true;
}

bool copyAll(int from, int to) {
    std::array<char, 65536> room;
    for (;;) {
        const ssize_t count = read(from, room.data(), room.size());
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
        if (count > 0 && !writeAll(to, room.data(), static_cast<std::size_t>(count))) return false;
    }
}

/// Standard input may be a socket, or stand in the middle of a file: neither can be opened again, so it is kept.
std::string keptInput() {
    const int file = memfd_create("standard input", MFD_CLOEXEC);
    if (file < 0 || !copyAll(STDIN_FILENO, file)) return "/dev/stdin";
    return "/proc/self/fd/" + std::to_string(file);
}

}  // namespace

std::string keptPath(std::string_view bytes) {
    const int file = memfd_create("kept", MFD_CLOEXEC);
    if (file < 0 || !writeAll(file, bytes.data(), bytes.size())) return "/dev/null";
    return "/proc/self/fd/" + std::to_string(file);
}

std::string standardInputPath() {
    static const std::string& path = *new std::string(keptInput());
    return path;
}

}  // namespace quorin::tool
