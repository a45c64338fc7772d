#pragma once

#include "quorin/model/Configuration.hpp"
#include "quorin/platform/json/Position.hpp"
#include "quorin/platform/rx/Error.hpp"
#include "quorin/table/ReadReport.hpp"

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Why a load failed.
struct LoadFailure {
    rx::Error error;                           ///< as the stream ended with it
    std::string message{};                     ///< for a person; of a URL without user info, query and fragment
    std::optional<json::Position> position{};  ///< where the document is no JSON
};

/// How many of each a load read.
struct ReadCounts {
    std::size_t sections = 0;  ///< members of the configuration, maps and lists among them
    std::size_t webServices = 0;
    std::size_t groups = 0;
    std::size_t features = 0;
    std::size_t layouts = 0;
    std::size_t analytics = 0;

    static ReadCounts of(const Configuration& configuration);
    bool operator==(const ReadCounts&) const = default;
};

/// What a load got, and why. A copy is cheap but for the findings; any thread may read it.
struct LoadReport {
    std::string source{};          ///< the file's path, or the URL without user info, query and fragment
    std::optional<Brand> brand{};  ///< that was asked for
    std::string section{};         ///< the member that is its section; empty where the whole document was read
    std::chrono::system_clock::time_point time{};  ///< when the load ended, by the platform's clock
    std::size_t size = 0;                          ///< of the document's text in bytes, decoded; zero where none came
    ReadCounts counts{};
    std::optional<ReadReport> findings{};  ///< what was not taken; absent unless the load asked for it
    std::optional<LoadFailure> failure{};  ///< absent when the load succeeded

    std::shared_ptr<const Configuration> configuration{};  ///< what the load yielded; null when it failed
    DocumentMap content{};                                 ///< the section as the reader got it

    /// SHA-256 of the content in its canonical form (members sorted by their names, no blanks): 64 lower-case
    /// hexadecimal digits, made at each call. Equal for documents that differ in order and layout alone. Empty when the
    /// load failed.
    std::string fingerprint() const;
};

}  // namespace quorin

#pragma GCC visibility pop
