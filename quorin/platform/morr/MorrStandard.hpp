#pragma once

#include "quorin/platform/morr/Options.hpp"
#include "quorin/platform/morr/Status.hpp"
#include "quorin/platform/morr/StoredValue.hpp"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::morr {
class Store;
}

#pragma GCC visibility push(default)

namespace quorin {

/// The key-value store: one SQLite file that several processes may use at a time. The first use opens it. All
/// operations may be called from any thread and never fail towards the caller: what cannot be kept in the file is kept
/// in memory as long as this object lives, and `status()` tells. Keys are any bytes.
///
/// An operation waits up to ten seconds for other processes that hold the file. A store that was used must not be used
/// on in a child process after fork(2) without exec. A file-size limit of the process (RLIMIT_FSIZE) is a full disk to
/// it: the host needs not ignore SIGXFSZ, which stays blocked on the calling thread for the time of an operation.
class MorrStandard {
public:
    explicit MorrStandard(morr::Options options);
    ~MorrStandard();
    MorrStandard(const MorrStandard&) = delete;
    MorrStandard& operator=(const MorrStandard&) = delete;

    /// The value as it is in the file now. Absent when there is none, or it cannot be read.
    std::optional<morr::StoredValue> get(std::string_view key);

    /// All values in one read.
    morr::StoredValues all();

    /// On the disk when the call returns. A file that holds an equal value is not written.
    void put(morr::StoredValue value, std::string_view forKey);

    /// Puts the value unless there is one of its type, and yields what is there then: of all processes that do so at
    /// once the first one puts, and all get the same.
    morr::StoredValue putIfAbsent(morr::StoredValue value, std::string_view forKey);

    /// On the disk when the call returns; nothing happens when there is no such key.
    void remove(std::string_view key);

    /// How the store fares; does not open it. Waits for an operation of another thread that is under way.
    morr::Status status() const;

    /// The file of an app's own store: `$XDG_DATA_HOME/NAME/store.db`, or `~/.local/share/NAME/store.db` where that
    /// variable is no absolute path. In NAME each "/", "%" and NUL is percent-encoded, and so are the names "." and
    /// ".."; an app without a bundle name goes by that of its program file. `:memory:` for a user without a home.
    static std::string defaultPath(std::string_view bundleName);

private:
    struct Turn;

    morr::Store& store();

    const morr::Options options_;
    mutable std::mutex mutex_;
    std::unique_ptr<morr::Store> store_;
};

}  // namespace quorin

#pragma GCC visibility pop
