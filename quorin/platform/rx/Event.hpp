#pragma once

#include "quorin/platform/rx/Error.hpp"

#include <cstddef>
#include <utility>
#include <variant>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// What a stream delivers: any number of values, then at most one end, which is an error or completion.
template <class T>
class Event {
public:
    static Event next(T value) { return Event(std::in_place_index<0>, std::move(value)); }
    static Event failed(Error error) { return Event(std::in_place_index<1>, std::move(error)); }
    static Event completed() { return Event(std::in_place_index<2>, std::monostate()); }

    /// Null at the end.
    const T* value() const { return std::get_if<0>(&content_); }

    /// Null unless the stream failed.
    const Error* error() const { return std::get_if<1>(&content_); }

    bool isCompleted() const { return content_.index() == 2; }

    /// True for an error and for completion: nothing comes after it.
    bool isTerminal() const { return content_.index() != 0; }

private:
    using Content = std::variant<T, Error, std::monostate>;

    template <std::size_t which, class Value>
    Event(std::in_place_index_t<which> place, Value value) : content_(place, std::move(value)) {}

    Content content_;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
