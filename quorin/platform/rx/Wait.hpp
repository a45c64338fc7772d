#pragma once

#include "quorin/platform/rx/Memory.hpp"
#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Result.hpp"

#include <latch>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// The error of waiting for a stream that completed and had no value.
struct NoValue {
    static constexpr std::string_view errorName = "rx.NoValue";

    std::string description() const { return "the stream completed without a value"; }

    bool operator==(const NoValue&) const = default;
};

/// Subscribes and blocks the calling thread for the first value or the end; leaves the stream after that. Not for use
/// inside a handler, and never-ending where the stream never delivers.
template <class T>
Result<T> wait(const Observable<T>& stream) {
    struct State {
        std::optional<Result<T>> result{};
        bool isSettled = false;
        std::latch settled{1};
    };
    const auto state = std::make_shared<State>();
    const Disposable subscription = stream.subscribe([state](const Event<T>& event) {
        if (state->isSettled) return;
        state->isSettled = true;
        const bool isKept = hasMemoryFor([&] {
            if (const T* value = event.value())
                state->result.emplace(*value);
            else
                state->result.emplace(event.error() ? *event.error() : Error(NoValue()));
        });
        if (!isKept) state->result.emplace(Error::noMemory());
        state->settled.count_down();
    });
    state->settled.wait();
    subscription.dispose();
    return *std::move(state->result);
}

}  // namespace quorin::rx

#pragma GCC visibility pop
