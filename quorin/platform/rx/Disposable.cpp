#include "quorin/platform/rx/Disposable.hpp"

#include <atomic>
#include <utility>

namespace quorin::rx {

struct Disposable::State {
    std::function<void()> action{};
    std::atomic<bool> isDisposed = false;
};

Disposable::Disposable(std::function<void()> action) : state_(std::make_shared<State>()) {
    state_->action = std::move(action);
}

void Disposable::dispose() const {
    const std::shared_ptr<State> state = state_;  // the action may drop the handle it is called through
    if (!state || state->isDisposed.exchange(true)) return;
    if (const std::function<void()> action = std::exchange(state->action, nullptr)) action();
}

bool Disposable::isDisposed() const { return !state_ || state_->isDisposed; }

}  // namespace quorin::rx
