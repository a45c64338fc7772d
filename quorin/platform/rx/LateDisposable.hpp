#pragma once

#include "quorin/platform/rx/Disposable.hpp"

#include <mutex>

namespace quorin::rx {

/// A place for a Disposable that may be known only after it is to be disposed: a stream can end while its source is
/// still being started. Either may come first, on any thread.
class LateDisposable {
public:
    /// Keeps it until `dispose()`; disposes it at once when that has been.
    void put(Disposable disposable);

    void dispose();

private:
    std::mutex mutex_;
    Disposable kept_;
    bool isDisposed_ = false;
};

}  // namespace quorin::rx
