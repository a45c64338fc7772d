#pragma once

#include "tests/faults/Disk.hpp"

#include <sqlite3.h>

#include <array>
#include <cstddef>
#include <functional>

namespace quorin::faults {

/// What the database library asks of the file system.
enum class Operation { open, read, write, sync, truncate, lock };

inline constexpr std::array operations{Operation::open, Operation::read,     Operation::write,
                                       Operation::sync, Operation::truncate, Operation::lock};

const char* nameOf(Operation operation);

/// While it lives, the file system that the database library uses: the real one, but for the operations that are to
/// fail. Nothing waits for the real disk. One at a time. It takes no memory, unless for `disk`.
class FaultyVFS {
public:
    FaultyVFS();
    ~FaultyVFS();
    FaultyVFS(const FaultyVFS&) = delete;
    FaultyVFS& operator=(const FaultyVFS&) = delete;

    /// From here on, `count` such operations succeed and the one after them fails: with those behind it, or alone.
    void failAfter(Operation operation, long count, bool forGood);

    /// From here on, the changes of files are on `disk` too; after `count` of them the power is gone.
    void powerOffAfter(long count) { changesLeft_ = count; }

    /// Lets everything succeed again. True if an operation has failed.
    bool stopFailing();

    Disk disk{};

private:
    struct File;
    struct Methods;

    static int open(sqlite3_vfs* self, const char* name, sqlite3_file* file, int flags, int* outFlags);
    static int remove(sqlite3_vfs* self, const char* name, int isDurable);

    bool fails(Operation operation);
    bool isOff();

    sqlite3_vfs* const real_;
    sqlite3_vfs own_;
    Operation failing_ = Operation::open;
    long untilFailure_ = -1;  ///< negative: none fails
    bool isForGood_ = false;
    long changesLeft_ = -1;  ///< negative: the power stays on
    bool hasFailed_ = false;
};

}  // namespace quorin::faults
