#include "tests/faults/FaultyVFS.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace quorin::faults {

/// One of the library's files; the real one stands behind it.
struct FaultyVFS::File {
    sqlite3_file base;
    FaultyVFS* vfs;
    const char* path;     ///< null where nobody asks what is on the disk
    bool isFolderUnsure;  ///< the real one syncs the folder of a new journal with it

    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }

    static File& of(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
};

/// The functions of a file, as the database library calls them.
struct FaultyVFS::Methods {
    static int close(sqlite3_file* file) {
        File& own = File::of(file);
        return own.real()->pMethods->xClose(own.real());
    }

    static int read(sqlite3_file* file, void* into, int size, sqlite3_int64 offset) {
        File& own = File::of(file);
        if (own.vfs->fails(Operation::read)) return SQLITE_IOERR_READ;
        return own.real()->pMethods->xRead(own.real(), into, size, offset);
    }

    static int write(sqlite3_file* file, const void* from, int size, sqlite3_int64 offset) {
        File& own = File::of(file);
        if (own.vfs->fails(Operation::write)) return SQLITE_FULL;
        if (own.vfs->isOff()) return SQLITE_IOERR_WRITE;
        const std::string_view bytes(static_cast<const char*>(from), static_cast<std::size_t>(size));
        if (own.path) own.vfs->disk.write(own.path, static_cast<std::size_t>(offset), bytes);
        return own.real()->pMethods->xWrite(own.real(), from, size, offset);
    }

    static int truncate(sqlite3_file* file, sqlite3_int64 size) {
        File& own = File::of(file);
        if (own.vfs->fails(Operation::truncate)) return SQLITE_IOERR_TRUNCATE;
        if (own.vfs->isOff()) return SQLITE_IOERR_TRUNCATE;
        if (own.path) own.vfs->disk.truncate(own.path, static_cast<std::size_t>(size));
        return own.real()->pMethods->xTruncate(own.real(), size);
    }

    static int sync(sqlite3_file* file, int) {
        File& own = File::of(file);
        if (own.vfs->fails(Operation::sync)) return SQLITE_IOERR_FSYNC;
        if (own.vfs->isOff()) return SQLITE_IOERR_FSYNC;
        if (own.path) own.vfs->disk.sync(own.path);
        if (own.path && std::exchange(own.isFolderUnsure, false)) own.vfs->disk.syncFolder();
        return SQLITE_OK;
    }

    static int fileSize(sqlite3_file* file, sqlite3_int64* size) {
        return File::of(file).real()->pMethods->xFileSize(File::of(file).real(), size);
    }

    static int lock(sqlite3_file* file, int kind) {
        File& own = File::of(file);
        if (own.vfs->fails(Operation::lock)) return SQLITE_IOERR_LOCK;
        return own.real()->pMethods->xLock(own.real(), kind);
    }

    static int unlock(sqlite3_file* file, int kind) {
        return File::of(file).real()->pMethods->xUnlock(File::of(file).real(), kind);
    }

    static int isReserved(sqlite3_file* file, int* result) {
        return File::of(file).real()->pMethods->xCheckReservedLock(File::of(file).real(), result);
    }

    static int control(sqlite3_file* file, int code, void* argument) {
        return File::of(file).real()->pMethods->xFileControl(File::of(file).real(), code, argument);
    }

    static int sectorSize(sqlite3_file* file) {
        return File::of(file).real()->pMethods->xSectorSize(File::of(file).real());
    }

    static int characteristics(sqlite3_file* file) {
        return File::of(file).real()->pMethods->xDeviceCharacteristics(File::of(file).real());
    }

    static int mapShared(sqlite3_file* file, int region, int size, int extend, void volatile** memory) {
        File& own = File::of(file);
        if (own.vfs->fails(Operation::open)) return SQLITE_IOERR_SHMOPEN;
        return own.real()->pMethods->xShmMap(own.real(), region, size, extend, memory);
    }

    static int lockShared(sqlite3_file* file, int offset, int count, int flags) {
        File& own = File::of(file);
        const bool isRelease = (flags & SQLITE_SHM_UNLOCK) != 0;
        if (!isRelease && own.vfs->fails(Operation::lock)) return SQLITE_IOERR_SHMLOCK;
        return own.real()->pMethods->xShmLock(own.real(), offset, count, flags);
    }

    static void fenceShared(sqlite3_file* file) { File::of(file).real()->pMethods->xShmBarrier(File::of(file).real()); }

    static int unmapShared(sqlite3_file* file, int isDeleted) {
        return File::of(file).real()->pMethods->xShmUnmap(File::of(file).real(), isDeleted);
    }

    static constexpr sqlite3_io_methods table{
        2,           close,      read,    write,      truncate,        sync,      fileSize,   lock,
        unlock,      isReserved, control, sectorSize, characteristics, mapShared, lockShared, fenceShared,
        unmapShared, nullptr,    nullptr};
};

const char* nameOf(Operation operation) {
    constexpr std::array names{"open", "read", "write", "sync", "truncate", "lock"};
    return names[static_cast<std::size_t>(operation)];
}

FaultyVFS::FaultyVFS() : real_(sqlite3_vfs_find(nullptr)), own_(*real_) {
    own_.szOsFile = static_cast<int>(sizeof(File)) + real_->szOsFile;
    own_.zName = "faulty";
    own_.pAppData = this;
    own_.xOpen = open;
    own_.xDelete = remove;
    sqlite3_vfs_register(&own_, 1);
}

FaultyVFS::~FaultyVFS() {
    sqlite3_vfs_unregister(&own_);
    sqlite3_vfs_register(real_, 1);
}

void FaultyVFS::failAfter(Operation operation, long count, bool forGood) {
    failing_ = operation;
    untilFailure_ = count;
    isForGood_ = forGood;
    hasFailed_ = false;
}

bool FaultyVFS::stopFailing() {
    untilFailure_ = -1;
    changesLeft_ = -1;
    return std::exchange(hasFailed_, false);
}

bool FaultyVFS::fails(Operation operation) {
    if (operation != failing_ || untilFailure_ < 0) return false;
    const bool isDue = untilFailure_ == 0;
    if (!isDue || !isForGood_) --untilFailure_;
    hasFailed_ = hasFailed_ || isDue;
    return isDue;
}

/// Counts a change, and tells whether it is too late for it.
bool FaultyVFS::isOff() {
    if (changesLeft_ > 0)
        --changesLeft_;
    else if (changesLeft_ == 0)
        hasFailed_ = true;
    return hasFailed_ && changesLeft_ == 0;
}

int FaultyVFS::open(sqlite3_vfs* self, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto& vfs = *static_cast<FaultyVFS*>(self->pAppData);
    file->pMethods = nullptr;  // there is nothing to close
    if (vfs.fails(Operation::open)) return SQLITE_CANTOPEN;
    const bool isNewJournal = (flags & SQLITE_OPEN_CREATE) != 0 && (flags & SQLITE_OPEN_MAIN_DB) == 0;
    File& own = *new (file) File{.base = {}, .vfs = &vfs, .path = nullptr, .isFolderUnsure = isNewJournal};
    const int code = vfs.real_->xOpen(vfs.real_, name, own.real(), flags, outFlags);
    if (code != SQLITE_OK) return code;
    own.base.pMethods = &Methods::table;
    if (name && vfs.changesLeft_ >= 0) {
        const std::string content = support::contentOf(name);
        if (content.empty() && vfs.changesLeft_ == 0) return code;  // made without power
        own.path = name;                                            // which stays as long as the file
        vfs.disk.begin(name, content);
    }
    return code;
}

int FaultyVFS::remove(sqlite3_vfs* self, const char* name, int isDurable) {
    auto& vfs = *static_cast<FaultyVFS*>(self->pAppData);
    if (vfs.isOff()) return SQLITE_IOERR_DELETE;
    if (vfs.changesLeft_ >= 0) vfs.disk.remove(name, isDurable != 0);
    return vfs.real_->xDelete(vfs.real_, name, 0);
}

}  // namespace quorin::faults
