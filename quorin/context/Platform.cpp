#include "quorin/context/Platform.hpp"

#include "quorin/platform/foundation/Locale.hpp"
#include "quorin/platform/foundation/UUID.hpp"

#include <memory>
#include <mutex>
#include <utility>

namespace quorin {
namespace {

/// What the host installed until it is asked for.
struct Slot {
    std::mutex mutex;
    std::unique_ptr<Platform> installed;
    bool taken = false;

    static Slot& shared() {
        static Slot& slot = *new Slot;
        return slot;
    }
};

/// Takes what was installed, and lets nothing be installed any more.
std::unique_ptr<Platform> take() {
    Slot& slot = Slot::shared();
    const std::lock_guard lock(slot.mutex);
    slot.taken = true;
    return std::move(slot.installed);
}

Platform installedOrStandard() {
    const auto installed = take();
    return installed ? std::move(*installed) : Platform::standard();
}

}  // namespace

Platform Platform::standard(foundation::Bundle bundle) {
    Platform made{.transport = skell::Transport::standard(), .bundle = std::move(bundle)};
    return made.completed();
}

Platform Platform::completed() const {
    Platform whole = *this;
    if (!whole.store) {
        const std::string path = MorrStandard::defaultPath(bundle.name.value_or(""));
        whole.store = std::make_shared<MorrStandard>(morr::Options{.path = path});
    }
    if (whole.device == foundation::Device()) whole.device = foundation::Device::current();
    if (!whole.locale) whole.locale = foundation::currentLocale;
    if (!whole.uuid) whole.uuid = foundation::randomUUID;
    if (!whole.clock) whole.clock = std::chrono::system_clock::now;
    return whole;
}

bool platform::install(const Platform& services) {
    auto whole = std::make_unique<Platform>(services.completed());
    {
        Slot& slot = Slot::shared();
        const std::lock_guard lock(slot.mutex);
        if (slot.taken) return false;
        slot.installed.swap(whole);
    }
    skell::Transport::setStandard(services.transport);
    return true;
}

const Platform& platform::current() {
    static const Platform& services = *new Platform(installedOrStandard());
    return services;
}

}  // namespace quorin
