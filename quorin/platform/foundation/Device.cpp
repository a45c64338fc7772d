#include "quorin/platform/foundation/Device.hpp"

#include <sys/utsname.h>

namespace quorin::foundation {

Device Device::current() {
    utsname facts{};
    if (uname(&facts) != 0) return {};
    return {.model = facts.machine, .systemName = facts.sysname, .systemVersion = facts.release};
}

}  // namespace quorin::foundation
