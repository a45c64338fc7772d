#pragma once

#include <cstddef>
#include <string>
#include <system_error>

namespace quorin::foundation {

/// What came of reading a file: its bytes, or why there are none.
struct FileRead {
    /// The whole file. Empty after a failure.
    std::string bytes{};
    /// The `errno` of the step that failed, in the generic category; no error when the file was read.
    std::error_code failure{};

    explicit operator bool() const { return !failure; }
};

/// The most bytes that are read of a file unless the caller says another number: 1 GiB.
inline constexpr std::size_t largestFile = std::size_t{1} << 30;

/// The whole file at once. Whatever can be read to an end is a file: pipes, standard input and files without a size
/// too; a directory fails (EISDIR), and so does a path with a NUL byte (ENOENT). A file of more than `limit` bytes
/// fails (EFBIG), whether it tells its size, grows while it is read, or has no end. A named pipe is waited for until
/// its writers have closed it. `bytes` has room for at least `padding` bytes behind its end, for readers that look
/// ahead. Throws nothing but std::bad_alloc, for a file beyond the memory. May be called from any thread.
FileRead readFile(const std::string& path, std::size_t padding = 0, std::size_t limit = largestFile);

}  // namespace quorin::foundation
