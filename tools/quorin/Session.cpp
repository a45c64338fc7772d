#include "Session.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace quorin::tool {
namespace {

std::optional<std::string> unlessEmpty(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

void replace(std::string& fact, const std::optional<std::string>& given) {
    if (given) fact = *given;
}

}  // namespace

ConfigurationManager::Instance& Session::manager() {
    if (!manager_) manager_ = std::make_unique<ConfigurationManager::Instance>(platform());
    return *manager_;
}

Platform Session::platform() const {
    Platform made = Platform::standard({unlessEmpty(options.bundleName), unlessEmpty(options.bundleVersion)});
    made.store =
        std::make_shared<MorrStandard>(options.store ? morr::Options{.path = *options.store, .setAsideDamaged = false}
                                                     : morr::Options{.path = MorrStandard::defaultPath("quorin")});
    replace(made.device.model, options.deviceModel);
    replace(made.device.systemName, options.systemName);
    replace(made.device.systemVersion, options.systemVersion);
    if (options.locale) made.locale = [locale = *options.locale] { return locale; };
    made.transport = transport();
    return made;
}

skell::Transport Session::transport() const {
    skell::Transport made = skell::Transport::standard();
    made.totalTimeout = std::chrono::milliseconds(std::llround(std::max(1.0, options.timeout * 1000)));
    made.connectTimeout = std::min(made.totalTimeout, made.connectTimeout);
    made.maxBody = options.maxBody;
    made.caFile = options.caFile;
    return made;
}

void Session::warnOfStore(const std::optional<Failure>& outcome) {
    if (!manager_) return;
    const morr::Status status = manager_->platform().store->status();
    const bool isSaid = outcome && outcome->message == status.message;
    if (!status.message.empty() && !isSaid) output.warn(status.message);
}

std::optional<Failure> Session::storeFailure() {
    const morr::Status status = manager().platform().store->status();
    switch (status.kind) {
        case morr::Status::Kind::notOpened:
        case morr::Status::Kind::open:
        case morr::Status::Kind::memory:
        case morr::Status::Kind::setAside: return std::nullopt;
        default: return Failure::own("store", status.message);
    }
}

}  // namespace quorin::tool
