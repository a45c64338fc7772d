#pragma once

#include "quorin/facade/c/base.h"
#include "quorin/platform/brule/Object.hpp"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

namespace quorin::c {

/// The objects that hosts hold by number. A number is a place and how often the place was given away, so one that was
/// released never means another object. Any thread; no object ends while the lock is held.
class Handles {
public:
    quorin_handle add(Object object);

    /// Empty where the handle is none of those that were given and not released.
    std::optional<Object> find(quorin_handle handle) const;

    /// Puts another object in the place of the handle's; false, with no effect, where there is no such handle.
    bool replace(quorin_handle handle, Object object);
    bool release(quorin_handle handle);

private:
    struct Slot {
        std::uint32_t generation = 1;
        std::size_t nextFree = 0;  ///< while the slot is free
        std::optional<Object> object{};
    };

    static constexpr std::size_t none = SIZE_MAX;

    /// `none` where there is no such handle.
    std::size_t placeOf(quorin_handle handle) const;

    mutable std::mutex mutex_;
    std::vector<Slot> slots_{};
    std::size_t firstFree_ = none;
};

/// Those of the process; never destroyed.
Handles& handles();

}  // namespace quorin::c
