#pragma once

#include "quorin/facade/c/Handles.hpp"
#include "quorin/facade/c/base.h"
#include "quorin/platform/rx/Error.hpp"
#include "quorin/table/Document.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// What the functions of the C interface are made of: each looks its handle up, asks the object one thing, and puts the
/// answer where the host wants it.
namespace quorin::c {

/// The work with no exception beyond it.
template <class Work>
quorin_status guarded(Work work) noexcept {
    try {
        return work();
    } catch (...) {
        return QUORIN_NO_MEMORY;  // the one exception that the library lets out
    }
}

/// A null pointer with a length is invalid, and so is a length that no memory has.
bool isValid(quorin_text text);

/// The bytes of a valid text; empty for no text, and for an invalid one.
std::optional<std::string_view> viewOf(quorin_text text);

inline std::optional<std::string> textOf(quorin_text text) { return std::optional<std::string>(viewOf(text)); }

/// The object that a JSON text is; empty for any other text.
std::optional<DocumentMap> mapOf(quorin_text json);

/// Where a host wants a text.
struct Buffer {
    char* data = nullptr;
    uint64_t capacity = 0;
    uint64_t* size = nullptr;
};

quorin_status put(std::string_view text, Buffer buffer);
quorin_status put(const DocumentMap& map, Buffer buffer);

quorin_status put(std::int32_t number, std::int32_t* place);
quorin_status put(Object object, quorin_handle* place);

/// The error where a host wants it, and the status that goes with it.
quorin_status failed(const rx::Error& error, quorin_handle* place);

template <NamedObject T>
quorin_status put(const T& value, quorin_handle* place) {
    return put(Object(value), place);
}

template <class T, class Place>
quorin_status put(const std::optional<T>& value, Place place) {
    return value ? put(*value, place) : QUORIN_ABSENT;
}

/// What `use` yields of the handle's object, if that is a `T`.
template <class T, class Use>
quorin_status with(quorin_handle handle, Use use) noexcept {
    return guarded([&] {
        const auto object = handles().find(handle);
        const auto value = object ? object->as<T>() : nullptr;
        return value ? use(*value) : QUORIN_INVALID_HANDLE;
    });
}

/// The same, with the object put in its place that `change` makes of a copy.
template <class T, class Change>
quorin_status changed(quorin_handle handle, Change change) noexcept {
    return with<T>(handle, [&](T copy) -> quorin_status {
        change(copy);
        return handles().replace(handle, Object(std::move(copy))) ? QUORIN_OK : QUORIN_INVALID_HANDLE;
    });
}

/// Leaves an empty text, whatever comes of what follows.
void clear(Buffer buffer) noexcept;

/// A text of the object: what the member function yields, which may be no text.
template <class T, class Member>
quorin_status text(quorin_handle handle, Member member, Buffer buffer) noexcept {
    clear(buffer);
    return with<T>(handle, [&](const T& object) { return put(std::invoke(member, object), buffer); });
}

/// Where a host wants a number or a handle: 0 at first, whatever comes of the work.
template <class Place, class Work>
quorin_status into(Place* place, Work work) noexcept {
    if (!place) return QUORIN_INVALID_ARGUMENT;
    *place = Place{};
    return guarded(work);
}

/// A number, or an object, that the function yields of the handle's object.
template <class T, class Function, class Place>
quorin_status answer(quorin_handle handle, Function function, Place* place) noexcept {
    return into(place, [&] {
        return with<T>(handle, [&](const T& object) { return put(std::invoke(function, object), place); });
    });
}

/// The object that is read back from its archived form.
template <class T>
quorin_status fromEncoded(quorin_text json, quorin_handle* place) noexcept {
    return into(place, [&]() -> quorin_status {
        const auto map = mapOf(json);
        return map ? put(T::fromEncoded(*map), place) : QUORIN_INVALID_ARGUMENT;
    });
}

}  // namespace quorin::c
