#include "quorin/platform/rx/LateDisposable.hpp"

#include <utility>

namespace quorin::rx {

void LateDisposable::put(Disposable disposable) {
    {
        const std::lock_guard lock(mutex_);
        if (!isDisposed_) {
            std::swap(kept_, disposable);
            return;
        }
    }
    disposable.dispose();
}

void LateDisposable::dispose() {
    Disposable kept;
    {
        const std::lock_guard lock(mutex_);
        isDisposed_ = true;
        std::swap(kept, kept_);
    }
    kept.dispose();
}

}  // namespace quorin::rx
