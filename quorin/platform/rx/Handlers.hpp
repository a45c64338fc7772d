#pragma once

#include "quorin/platform/rx/Event.hpp"

#include <functional>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// One function for each kind of event; an empty one passes over its kind.
template <class T>
struct Handlers {
    std::function<void(const T&)> next{};
    std::function<void(const Error&)> error{};
    std::function<void()> completed{};

    void handle(const Event<T>& event) const {
        if (const T* value = event.value()) {
            if (next) next(*value);
        } else if (const Error* failure = event.error()) {
            if (error) error(*failure);
        } else if (completed) {
            completed();
        }
    }
};

}  // namespace quorin::rx

#pragma GCC visibility pop
