#pragma once

#include <string>

#pragma GCC visibility push(default)

namespace quorin::morr {

/// How a store fares.
struct Status {
    enum class Kind {
        /// Not used so far; the file is opened by the first use.
        notOpened,
        /// Kept in its file.
        open,
        /// Kept in memory, as the host asked for.
        memory,
        /// The file cannot be used, or cannot be read now: what is put lasts as long as the store.
        unavailable,
        /// The file can be read and not written: what is put lasts as long as the store.
        readOnly,
        /// Kept in its file, a new one in the place of a damaged one that was renamed.
        setAside,
        /// The last change did not reach the file and lasts as long as the store. The next change tries it again.
        writeFailed,
    };

    Kind kind = Kind::notOpened;
    /// One line for people: what happened, to which file, and what to do about it. Holds no stored value. Empty for
    /// `notOpened`, `open` and `memory`.
    std::string message{};

    bool operator==(const Status&) const = default;
};

}  // namespace quorin::morr

#pragma GCC visibility pop
