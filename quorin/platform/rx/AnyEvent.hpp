#pragma once

#include "quorin/platform/rx/Event.hpp"

#include <memory>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// An event of a type that only its sender and its receivers know. A copy shares the event.
struct AnyEvent {
    std::shared_ptr<const void> content{};
    bool isTerminal = false;

    /// One that can be kept for later.
    template <class T>
    static AnyEvent of(Event<T> event) {
        const bool isTerminal = event.isTerminal();
        return {std::make_shared<const Event<T>>(std::move(event)), isTerminal};
    }

    /// One for the length of a call, which takes no memory.
    template <class T>
    static AnyEvent lent(const Event<T>& event) {
        return {std::shared_ptr<const void>(std::shared_ptr<const void>(), &event), event.isTerminal()};
    }

    template <class T>
    const Event<T>& as() const {
        return *static_cast<const Event<T>*>(content.get());
    }

    /// The same event for later: a copy of one that is lent.
    template <class T>
    AnyEvent kept() const {
        return content.use_count() > 0 ? *this : of(as<T>());
    }
};

}  // namespace quorin::rx

#pragma GCC visibility pop
