#include "quorin/platform/rx/Disposable.hpp"

namespace quorin::rx {

void Disposable::dispose() const {
    const std::shared_ptr<State> state = state_;  // the action may drop the handle it is called through
    if (state && !state->isDisposed.exchange(true)) state->act();
}

bool Disposable::isDisposed() const { return !state_ || state_->isDisposed; }

}  // namespace quorin::rx
