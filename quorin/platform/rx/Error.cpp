#include "quorin/platform/rx/Error.hpp"

namespace quorin::rx {

Error Error::noMemory() {
    static constexpr NoMemory error;
    return Error(std::shared_ptr<const void>(std::shared_ptr<const void>(), &error), error);
}

}  // namespace quorin::rx
