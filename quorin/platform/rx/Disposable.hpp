#pragma once

#include <functional>
#include <memory>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A handle to something that can be ended early, above all a subscription. Copies end the same thing. Dropping a
/// handle ends nothing: whatever runs goes on by itself.
class Disposable {
public:
    /// A handle to nothing, disposed from the start.
    Disposable() = default;

    /// A handle whose first `dispose()` runs `action`; the action is released after that.
    explicit Disposable(std::function<void()> action);

    /// On any thread and any number of times; only the first call of all copies does anything. A later call on another
    /// thread does not wait for the first one.
    void dispose() const;

    /// Whether one of the copies was disposed. The end of a stream is not the disposal of its handles.
    bool isDisposed() const;

private:
    struct State;
    std::shared_ptr<State> state_{};
};

}  // namespace quorin::rx

#pragma GCC visibility pop
