#pragma once

#include <atomic>
#include <concepts>
#include <memory>
#include <optional>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// A handle to something that can be ended early, above all a subscription. Copies end the same thing. Dropping a
/// handle ends nothing: whatever runs goes on by itself.
class Disposable {
public:
    /// A handle to nothing, disposed from the start.
    Disposable() = default;

    /// A handle whose first `dispose()` calls `action`, which is released after that.
    template <std::invocable Action>
    explicit Disposable(Action action) : state_(std::make_shared<Armed<Action>>(std::move(action))) {}

    /// On any thread and any number of times; only the first call of all copies does anything. A later call on another
    /// thread does not wait for the first one.
    void dispose() const;

    /// Whether one of the copies was disposed. The end of a stream is not the disposal of its handles.
    bool isDisposed() const;

private:
    struct State {
        State() = default;
        State(const State&) = delete;
        State& operator=(const State&) = delete;
        virtual ~State() = default;
        virtual void act() = 0;

        std::atomic<bool> isDisposed = false;
    };

    template <class Action>
    struct Armed final : State {
        explicit Armed(Action given) : action(std::move(given)) {}
        void act() override {
            if (!action) return;
            Action taken = *std::move(action);
            action.reset();
            taken();
        }

        std::optional<Action> action;
    };

    std::shared_ptr<State> state_{};
};

}  // namespace quorin::rx

#pragma GCC visibility pop
