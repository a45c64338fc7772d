#include "quorin/platform/skell/Transport.hpp"

#include <mutex>
#include <utility>

namespace quorin::skell {
namespace {

struct Slot {
    std::mutex mutex{};
    Transport transport{};
};

Slot& slot() {
    static Slot& standard = *new Slot;  // never destroyed: requests may be made while the process exits
    return standard;
}

}  // namespace

Transport Transport::standard() {
    const std::lock_guard lock(slot().mutex);
    return slot().transport;
}

void Transport::setStandard(Transport transport) {
    const std::lock_guard lock(slot().mutex);
    std::swap(slot().transport, transport);  // the old one, with its functions, is destroyed after the lock
}

}  // namespace quorin::skell
