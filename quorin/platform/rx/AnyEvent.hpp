#pragma once

#include "quorin/platform/rx/Event.hpp"

#include <memory>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// An event that is kept for later, of a type that only its sender and its receivers know. A copy shares the event.
struct AnyEvent {
    std::shared_ptr<const void> content{};
    bool isTerminal = false;

    template <class T>
    static AnyEvent of(Event<T> event) {
        const bool isTerminal = event.isTerminal();
        return {std::make_shared<const Event<T>>(std::move(event)), isTerminal};
    }
};

}  // namespace quorin::rx

#pragma GCC visibility pop
