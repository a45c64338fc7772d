#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::morr {

/// What stands under one key. Booleans are stored as the integers 0 and 1; a text is any bytes, NUL included.
using StoredValue = std::variant<std::int64_t, double, std::string, std::vector<std::byte>>;

/// Values by their keys, in byte order of the keys.
using StoredValues = std::map<std::string, StoredValue, std::less<>>;

/// The same value. Where memory ends, `std::variant`'s own copy of these types is undefined in libstdc++ 12, which
/// takes the half-made copy for a whole one.
StoredValue copyOf(const StoredValue& value);

/// True when storing one in the place of the other would change nothing: the same type and the same bits, where all
/// numbers that are no number count as one.
bool isSame(const StoredValue& left, const StoredValue& right);

}  // namespace quorin::morr

#pragma GCC visibility pop
