#pragma once

#include <signal.h>

namespace quorin::morr {

/// While it lives, a write of this thread beyond the process's file-size limit (RLIMIT_FSIZE) fails, as one to a full
/// disk does, and its SIGXFSZ, which by default ends the process, comes to nobody. One that the host holds back stays.
class SizeLimitGuard {
public:
    SizeLimitGuard();
    ~SizeLimitGuard();
    SizeLimitGuard(const SizeLimitGuard&) = delete;
    SizeLimitGuard& operator=(const SizeLimitGuard&) = delete;

private:
    sigset_t before_{};
    bool isPendingBefore_ = false;
};

}  // namespace quorin::morr
