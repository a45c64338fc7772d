#pragma once

#include "quorin/table/Document.hpp"

#include <concepts>
#include <optional>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin {

/// A value that is read from the server document. Empty when the object does not make one.
template <class T>
concept Serializable = requires(const DocumentMap& json) {
    { T::fromJSON(json) } -> std::same_as<std::optional<T>>;
};

/// A value that is written as a string-keyed map, which never fails, and read back from it.
template <class T>
concept Archivable = requires(const T& value, const DocumentMap& encoded) {
    { value.encode() } -> std::same_as<DocumentMap>;
    { T::fromEncoded(encoded) } -> std::same_as<std::optional<T>>;
};

/// The server form of a value: absent, because the library reads server documents and never writes one.
template <Serializable T>
std::optional<DocumentMap> serialized(const T&) {
    return std::nullopt;
}

/// The archived forms of `values`, in their order. Always present; empty for an empty list.
template <Archivable T>
std::optional<std::vector<DocumentMap>> toEncodedArray(const std::vector<T>& values) {
    std::vector<DocumentMap> encoded;
    encoded.reserve(values.size());
    for (const T& value : values) encoded.push_back(value.encode());
    return encoded;
}

}  // namespace quorin

#pragma GCC visibility pop
