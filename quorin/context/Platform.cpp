#include "quorin/context/Platform.hpp"

#include "quorin/platform/foundation/Locale.hpp"
#include "quorin/platform/foundation/UUID.hpp"

#include <mutex>
#include <optional>
#include <utility>

namespace quorin {
namespace {

/// What the host installed until it is asked for.
struct Slot {
    std::mutex mutex;
    std::optional<Platform> installed;
    bool taken = false;

    static Slot& shared() {
        static Slot& slot = *new Slot;
        return slot;
    }
};

template <class Service>
void complete(Service& service, const Service& standard) {
    if (!service) service = standard;
}

Platform take() {
    Slot& slot = Slot::shared();
    const std::lock_guard lock(slot.mutex);
    slot.taken = true;
    return slot.installed ? *std::exchange(slot.installed, {}) : Platform::standard();
}

}  // namespace

Platform Platform::standard(foundation::Bundle bundle) {
    const std::string name = bundle.name.value_or("");
    return {.store = std::make_shared<MorrStandard>(morr::Options{.path = MorrStandard::defaultPath(name)}),
            .transport = skell::Transport::standard(),
            .bundle = std::move(bundle),
            .device = foundation::Device::current(),
            .locale = foundation::currentLocale,
            .uuid = foundation::randomUUID,
            .clock = std::chrono::system_clock::now};
}

Platform Platform::completed() const {
    Platform whole = *this;
    const Platform standard = Platform::standard(bundle);
    complete(whole.store, standard.store);
    complete(whole.locale, standard.locale);
    complete(whole.uuid, standard.uuid);
    complete(whole.clock, standard.clock);
    return whole;
}

bool platform::install(const Platform& services) {
    Slot& slot = Slot::shared();
    const std::lock_guard lock(slot.mutex);
    if (slot.taken) return false;
    skell::Transport::setStandard(services.transport);
    slot.installed = services.completed();
    return true;
}

const Platform& platform::current() {
    static const Platform& services = *new Platform(take());
    return services;
}

}  // namespace quorin
