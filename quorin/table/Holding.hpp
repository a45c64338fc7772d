#pragma once

#include <span>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::table {

struct KeyTable;

/// What stands in one field, for those who describe documents: reports, references, schemas.
struct Holding {
    std::string_view member{};  ///< of the model, as C++ spells it: "freeTime"
    std::string_view shape{};   ///< what the value must be, as reports name it

    /// Of an enumeration: all texts that it takes, which documents may spell in any letter case.
    std::span<const std::string_view> texts{};

    /// Of a section, or of a list or a map of sections: how each of them is read. Null for all other values.
    const KeyTable& (*section)() = nullptr;
};

}  // namespace quorin::table

#pragma GCC visibility pop
