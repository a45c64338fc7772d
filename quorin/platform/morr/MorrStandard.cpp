#include "quorin/platform/morr/MorrStandard.hpp"

#include "quorin/platform/morr/Store.hpp"

#include <utility>

namespace quorin {

MorrStandard::MorrStandard(morr::Options options) : options_(std::move(options)) {}

MorrStandard::~MorrStandard() = default;

morr::Store& MorrStandard::store() {
    if (!store_) store_ = std::make_unique<morr::Store>(options_);
    return *store_;
}

std::optional<morr::StoredValue> MorrStandard::get(std::string_view key) {
    const std::scoped_lock lock(mutex_);
    return store().get(key);
}

morr::StoredValues MorrStandard::all() {
    const std::scoped_lock lock(mutex_);
    return store().all();
}

void MorrStandard::put(morr::StoredValue value, std::string_view forKey) {
    const std::scoped_lock lock(mutex_);
    store().change(forKey, std::move(value));
}

void MorrStandard::remove(std::string_view key) {
    const std::scoped_lock lock(mutex_);
    store().change(key, std::nullopt);
}

morr::Status MorrStandard::status() const {
    const std::scoped_lock lock(mutex_);
    return store_ ? store_->status() : morr::Status{};
}

}  // namespace quorin
