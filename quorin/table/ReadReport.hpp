#pragma once

#include "quorin/platform/json/Position.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin {

/// What a value that was not taken cost its surroundings.
enum class Cost : std::uint8_t {
    fieldAbsent,     ///< the field is absent
    defaultUsed,     ///< the field has its default
    elementDropped,  ///< an element of a list is missing, the others are there
    entryDropped,    ///< an entry of a map is missing, the others are there
    listDropped,     ///< a whole list is absent
    mapDropped,      ///< a whole map is absent
    nothingRead,     ///< the read yielded nothing
    notAsked,        ///< nothing: no reader asks for this member
    overridden,      ///< nothing is read of it: what the document holds further out stands in its place
};

/// The cost in words: "field absent", "entry dropped", ...
std::string_view nameOf(Cost cost);

/// What is expected of a member that no reader asks for, and found where a required one is missing.
inline constexpr std::string_view nothing = "nothing";

/// What is expected of an object whose whole is the value.
inline constexpr std::string_view anyMembers = "members";

/// What is found where a number or a boolean is expected and stands in quotes.
inline constexpr std::string_view quotedValue = "value in quotes";

/// What is found where one of some texts is expected and none of them stands.
inline constexpr std::string_view otherText = "other text";

/// One value of the document that a reader did not take. The texts are constants of the library.
struct Finding {
    std::string pointer{};        ///< where it stands, as a JSON Pointer (RFC 6901): "/videoPlayer/ads/freeTime"
    std::string_view expected{};  ///< what the model takes there: "integer", "list of strings", ...
    std::string_view found{};     ///< what the document holds: "string", "null", ... or "nothing"
    Cost cost = Cost::fieldAbsent;
    std::optional<json::Position> position{};  ///< known when the document was loaded from a text; of the object around
                                               ///< it when nothing was found

    bool operator==(const Finding&) const = default;
};

/// Everything that one read did not take, in reading order. Readers fill one only when a caller hands it in.
struct ReadReport {
    std::vector<Finding> findings{};
    std::size_t omitted = 0;  ///< findings beyond what a report holds: 10,000 of them, or pointers of 4 MiB

    /// Adds a finding, or counts it as omitted. What two fields in a row tell alike is told once.
    void add(Finding finding);

    /// Whether a finding with a pointer of so many bytes would be omitted.
    bool isFullFor(std::size_t pointerBytes) const;

    friend bool operator==(const ReadReport& left, const ReadReport& right) {
        return left.findings == right.findings && left.omitted == right.omitted;
    }

private:
    std::size_t bytes_ = 0;
};

}  // namespace quorin

#pragma GCC visibility pop
