#pragma once

#include "quorin/platform/foundation/Bundle.hpp"
#include "quorin/platform/foundation/Device.hpp"
#include "quorin/platform/morr/MorrStandard.hpp"
#include "quorin/platform/skell/Transport.hpp"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// The services and facts of the machine and the app that the library works with. A host that names none gets
/// `standard()`. Its functions are called on whatever thread needs them, that of the requests too, and by several at
/// once.
struct Platform {
    std::shared_ptr<MorrStandard> store{};  ///< where identity values are kept between launches
    skell::Transport transport{};           ///< how requests travel, and where cookies are
    foundation::Bundle bundle{};            ///< what the app says about itself
    foundation::Device device{};
    std::function<std::string()> locale{};  ///< identifier of the user's locale: "en_US"
    std::function<std::string()> uuid{};    ///< a new random UUID in its canonical upper-case text form
    std::function<std::chrono::system_clock::time_point()> clock{};

    /// The machine's own services, for an app with this bundle: the store is `MorrStandard::defaultPath` of its name.
    static Platform standard(foundation::Bundle bundle = {});

    /// This one with the standard services, and the machine's facts, in the place of those that are missing.
    Platform completed() const;
};

/// The platform of the shared manager and of every function that is not handed one.
namespace platform {

/// Makes `services` the current platform. To be called before the first use of the library: false, with no effect, when
/// the current platform has been asked for already. Any thread.
bool install(const Platform& services);

/// What was installed, or `Platform::standard()`. Lives as long as the process. Any thread.
const Platform& current();

}  // namespace platform
}  // namespace quorin

#pragma GCC visibility pop
