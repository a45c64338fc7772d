#include "quorin/facade/c/Handles.hpp"

#include <new>
#include <utility>

namespace quorin::c {
namespace {

constexpr int placeBits = 32;

}  // namespace

quorin_handle Handles::add(Object object) {
    const std::lock_guard lock(mutex_);
    if (firstFree_ == none) {
        if (slots_.size() == UINT32_MAX) throw std::bad_alloc();
        slots_.push_back({.nextFree = none});
        firstFree_ = slots_.size() - 1;
    }
    const std::size_t place = firstFree_;
    Slot& slot = slots_[place];
    firstFree_ = slot.nextFree;
    slot.object = std::move(object);
    return quorin_handle{slot.generation} << placeBits | place;
}

std::size_t Handles::placeOf(quorin_handle handle) const {
    const std::size_t place = static_cast<std::uint32_t>(handle);
    if (place >= slots_.size()) return none;
    const Slot& slot = slots_[place];
    return slot.object && slot.generation == handle >> placeBits ? place : none;
}

std::optional<Object> Handles::find(quorin_handle handle) const {
    const std::lock_guard lock(mutex_);
    const std::size_t place = placeOf(handle);
    return place == none ? std::nullopt : slots_[place].object;
}

bool Handles::replace(quorin_handle handle, Object object) {
    std::optional<Object> ended(std::move(object));
    const std::lock_guard lock(mutex_);
    const std::size_t place = placeOf(handle);
    if (place != none) slots_[place].object.swap(ended);
    return place != none;
}

bool Handles::release(quorin_handle handle) {
    std::optional<Object> ended;
    const std::lock_guard lock(mutex_);
    const std::size_t place = placeOf(handle);
    if (place == none) return false;
    Slot& slot = slots_[place];
    slot.object.swap(ended);
    if (++slot.generation != 0) {  // else the place has had all its numbers
        slot.nextFree = firstFree_;
        firstFree_ = place;
    }
    return true;
}

Handles& handles() {
    static Handles& shared = *new Handles();
    return shared;
}

}  // namespace quorin::c
