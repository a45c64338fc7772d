#include "tests/platform/skell/HeldName.hpp"

#include <dlfcn.h>
#include <netdb.h>

#include <condition_variable>
#include <mutex>
#include <string_view>

namespace quorin::skell {
namespace {

constexpr std::string_view heldName = "held.invalid";

struct State {
    std::mutex mutex{};
    std::condition_variable changed{};
    bool isHeld = false;
    bool isAsked = false;
};

State& state() {
    static State& one = *new State;
    return one;
}

void waitUntilReleased() {
    std::unique_lock lock(state().mutex);
    state().isAsked = true;
    state().changed.notify_all();
    state().changed.wait(lock, [] { return !state().isHeld; });
}

}  // namespace

HeldName::HeldName() {
    const std::lock_guard lock(state().mutex);
    state().isHeld = true;
    state().isAsked = false;
}

std::string HeldName::text() const { return std::string(heldName); }

void HeldName::waitUntilAsked() const {
    std::unique_lock lock(state().mutex);
    state().changed.wait(lock, [] { return state().isAsked; });
}

void HeldName::release() {
    const std::lock_guard lock(state().mutex);
    state().isHeld = false;
    state().changed.notify_all();
}

}  // namespace quorin::skell

/// Goes before the system's function of this name, and on to that one with every other host.
int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found) {
    if (name && quorin::skell::heldName == name) {
        quorin::skell::waitUntilReleased();
        return EAI_NONAME;
    }
    using Function = int(const char*, const char*, const addrinfo*, addrinfo**);
    static Function* const next = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return next(name, service, hints, found);
}
