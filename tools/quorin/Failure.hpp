#pragma once

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/platform/rx/Error.hpp"

#include <string>
#include <string_view>

namespace quorin::tool {

/// The exit status of a wrong use, and of commands that judge when they cannot.
inline constexpr int wrongUse = 2;

/// Why a command failed, for people and for programs.
struct Failure {
    std::string message{};       ///< one line: what happened, where, what to do about it
    json::DocumentMap record{};  ///< the same as `--errors json` prints it
    int status = 1;              ///< what the program exits with, unless the session says more of trouble

    /// A failure of the program's own. `kind` is "usage", "file", "notRead", "noService", "noValue" or "store".
    static Failure own(std::string_view kind, std::string message, int status = 1);

    /// A wrong use of the program.
    static Failure usage(std::string message);

    /// A command that found what it says by its exit status alone.
    static Failure silent();

    /// The error of a stream, while doing `what`.
    static Failure of(const rx::Error& error, std::string_view what);
};

}  // namespace quorin::tool
