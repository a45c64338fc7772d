#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

/// The integers by which hosts know the cases of an enumeration: each is the case's place in a table of the native
/// ones, and -1 is no value.
namespace quorin::integers {

template <class Native, std::size_t size>
using Table = std::array<typename Native::Case, size>;

/// Whether an enumeration with this table has the integer.
template <class Case, std::size_t size>
constexpr bool has(const std::array<Case, size>&, std::int64_t integer) {
    return integer >= -1 && integer < static_cast<std::int64_t>(size);
}

/// The place of the native value; -1 for none, and for one that hosts have no integer for.
template <class Native, class Case, std::size_t size>
constexpr std::int32_t integerOf(const std::array<Case, size>& table, std::optional<Native> value) {
    for (std::size_t place = 0; place < size; ++place) {
        if (value && *value == table[place]) return static_cast<std::int32_t>(place);
    }
    return -1;
}

/// The native value at a place. Ends the process where there is none, as for -1.
template <class Case, std::size_t size>
constexpr Case at(const std::array<Case, size>& table, std::int32_t place) {
    if (place < 0 || static_cast<std::size_t>(place) >= size) std::abort();
    return table[static_cast<std::size_t>(place)];
}

}  // namespace quorin::integers
