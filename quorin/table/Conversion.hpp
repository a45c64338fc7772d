#pragma once

#include "quorin/platform/json/Builder.hpp"
#include "quorin/table/KeyTable.hpp"

#include <concepts>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorin::table {

using json::Builder;
using json::Kind;

/// How one field type stands in a document: `shape` is its name in reports, `read` is empty (and has told `at`) when
/// the value is of another shape, `write` never fails. Models gain a field type by one more specialisation.
template <class T>
struct Conversion;

/// A type with a key table: a section of the configuration.
template <class T>
concept Model = requires {
    { T::keyTable() } -> std::same_as<const KeyTable&>;
};

/// An enumeration written by its raw value.
template <class T>
concept RawRepresentable = requires(const T& value, std::string_view text) {
    { value.rawValue() } -> std::convertible_to<std::string_view>;
    { T::fromRawValue(text) } -> std::same_as<std::optional<T>>;
};

/// Whether `value` is an object; `at` is told when it is not.
bool isObject(const Node& value, const Reading& at);

/// Whether it is a list of objects; `at` is told of the first thing that is not.
bool isListOfObjects(const Node& value, const Reading& at);

/// Whether it is an object of objects; `at` is told of the first thing that is not.
bool isMapOfObjects(const Node& value, const Reading& at);

template <>
struct Conversion<std::string> {
    static constexpr std::string_view shape = "string";
    static std::optional<std::string> read(const Node& value, const Reading& at);
    static void write(const std::string& text, Builder& into) { into.string(text); }
};

/// A number or a boolean; zero is false.
template <>
struct Conversion<bool> {
    static constexpr std::string_view shape = "boolean";
    static std::optional<bool> read(const Node& value, const Reading& at);
    static void write(bool boolean, Builder& into) { into.boolean(boolean); }
};

/// A number, cut off toward zero, or a boolean. Numbers beyond signed 64 bits are no integers.
template <>
struct Conversion<Integer> {
    static constexpr std::string_view shape = "integer";
    static std::optional<Integer> read(const Node& value, const Reading& at);
    static void write(Integer integer, Builder& into) { into.integer(integer); }
};

/// One element of another type loses the whole list.
template <>
struct Conversion<std::vector<std::string>> {
    static constexpr std::string_view shape = "list of strings";
    static std::optional<std::vector<std::string>> read(const Node& value, const Reading& at);
    static void write(const std::vector<std::string>& texts, Builder& into);
};

/// Any object, kept as it is.
template <>
struct Conversion<DocumentMap> {
    static constexpr std::string_view shape = "object";
    static std::optional<DocumentMap> read(const Node& value, const Reading& at);
    static void write(const DocumentMap& map, Builder& into) { into.copy(map.node()); }
};

/// Documents write raw values in any letter case, archives exactly.
template <RawRepresentable T>
struct Conversion<T> {
    static constexpr std::string_view shape = T::shape;

    static std::optional<T> read(const Node& value, const Reading& at) {
        std::optional<T> match;
        if (value.kind == Kind::string)
            match = at.form() == Form::document ? T::matching(value.string()) : T::fromRawValue(value.string());
        if (!match) at.rejectText(shape, value);
        return match;
    }

    static void write(const T& value, Builder& into) { into.string(value.rawValue()); }
};

/// A section, by its own key table.
template <Model T>
struct Conversion<T> {
    static constexpr std::string_view shape = "object";

    static std::optional<T> read(const Node& value, const Reading& at, std::optional<std::string_view> name = {}) {
        std::optional<T> model;
        if (isObject(value, at) && !table::read(T::keyTable(), &model.emplace(), value, at, name)) model.reset();
        return model;
    }

    static void write(const T& model, Builder& into) { table::write(T::keyTable(), &model, into); }
};

/// Elements that do not read are dropped, the others keep their order. One that is no object loses the whole list.
template <Model T>
struct Conversion<std::vector<T>> {
    static constexpr std::string_view shape = "list of objects";

    static std::optional<std::vector<T>> read(const Node& value, const Reading& at) {
        std::optional<std::vector<T>> models;
        if (!isListOfObjects(value, at)) return models;
        models.emplace().reserve(value.size);
        for (std::uint32_t i = 0; i < value.size; ++i) {
            Step step;
            auto model = Conversion<T>::read(value.items[i], at.element(step, i, Role::element));
            if (model) models->push_back(std::move(*model));
        }
        return models;
    }

    static void write(const std::vector<T>& models, Builder& into) {
        const std::size_t begun = into.begin();
        for (const T& model : models) Conversion<T>::write(model, into);
        into.endList(begun);
    }
};

/// Members that do not read are left out. One that is no object loses the whole map.
template <Model T>
struct Conversion<MapOf<T>> {
    static constexpr std::string_view shape = "object of objects";

    static std::optional<MapOf<T>> read(const Node& value, const Reading& at) {
        return isMapOfObjects(value, at) ? std::optional(readEntries(value, at)) : std::nullopt;
    }

    /// As `read`, but a member that is no object is left out like one that does not read.
    static std::optional<MapOf<T>> readLeniently(const Node& value, const Reading& at) {
        return isObject(value, at) ? std::optional(readEntries(value, at)) : std::nullopt;
    }

    static void write(const MapOf<T>& models, Builder& into) {
        const std::size_t begun = into.begin();
        for (const auto& [name, model] : models) {
            into.name(name);
            Conversion<T>::write(model, into);
        }
        into.endObject(begun);
    }

private:
    static MapOf<T> readEntries(const Node& value, const Reading& at) {
        MapOf<T> models;
        for (std::uint32_t i = 0; i < value.size; ++i) {
            const std::string_view name = value.name(i).string();
            Step step;
            auto model = Conversion<T>::read(value.value(i), at.member(step, name, Role::entry), name);
            if (model) models.emplace(name, std::move(*model));
        }
        return models;
    }
};

}  // namespace quorin::table
