#include "quorin/platform/morr/SizeLimitGuard.hpp"

#include <cerrno>
#include <ctime>

namespace quorin::morr {
namespace {

sigset_t signalAlone() {
    sigset_t set{};
    sigemptyset(&set);
    sigaddset(&set, SIGXFSZ);
    return set;
}

}  // namespace

SizeLimitGuard::SizeLimitGuard() {
    const sigset_t alone = signalAlone();
    pthread_sigmask(SIG_BLOCK, &alone, &before_);
    if (sigismember(&before_, SIGXFSZ) == 0) return;
    sigset_t pending{};
    isPendingBefore_ = sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
}

/// The system sends it to the thread that writes, so it waits here and nowhere else.
SizeLimitGuard::~SizeLimitGuard() {
    const int code = errno;
    const sigset_t alone = signalAlone();
    const std::timespec now{};
    while (!isPendingBefore_ && sigtimedwait(&alone, nullptr, &now) < 0 && errno == EINTR) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    errno = code;
}

}  // namespace quorin::morr
