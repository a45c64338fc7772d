#include "quorin/platform/rx/Memory.hpp"

#include <exception>
#include <new>

namespace quorin::rx {

bool hasMemoryFor(void (*work)(void* context), void* context) noexcept {
    try {
        work(context);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    } catch (...) {
        std::terminate();  // in here, so that it knows what was thrown
    }
}

}  // namespace quorin::rx
