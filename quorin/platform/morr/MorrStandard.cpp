#include "quorin/platform/morr/MorrStandard.hpp"

#include "quorin/platform/morr/SizeLimitGuard.hpp"
#include "quorin/platform/morr/Store.hpp"

#include <utility>

namespace quorin {

/// One operation at a time, which no limit of the system's ends. Reading may write too: the first one makes journals.
struct MorrStandard::Turn {
    explicit Turn(std::mutex& mutex) : lock(mutex) {}

    const std::scoped_lock<std::mutex> lock;
    const morr::SizeLimitGuard guard{};
};

MorrStandard::MorrStandard(morr::Options options) : options_(std::move(options)) {}

/// Closing a file carries its journal over.
MorrStandard::~MorrStandard() {
    if (!store_) return;
    const Turn turn(mutex_);
    store_.reset();
}

morr::Store& MorrStandard::store() {
    if (!store_) store_ = std::make_unique<morr::Store>(options_);
    return *store_;
}

std::optional<morr::StoredValue> MorrStandard::get(std::string_view key) {
    const Turn turn(mutex_);
    return store().get(key);
}

morr::StoredValues MorrStandard::all() {
    const Turn turn(mutex_);
    return store().all();
}

void MorrStandard::put(morr::StoredValue value, std::string_view forKey) {
    const Turn turn(mutex_);
    store().change(forKey, std::move(value));
}

morr::StoredValue MorrStandard::putIfAbsent(morr::StoredValue value, std::string_view forKey) {
    const Turn turn(mutex_);
    return store().claim(forKey, std::move(value));
}

void MorrStandard::remove(std::string_view key) {
    const Turn turn(mutex_);
    store().change(key, std::nullopt);
}

morr::Status MorrStandard::status() const {
    const std::scoped_lock lock(mutex_);
    return store_ ? store_->status() : morr::Status{};
}

}  // namespace quorin
