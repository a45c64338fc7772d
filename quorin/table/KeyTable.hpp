#pragma once

#include "quorin/table/Document.hpp"
#include "quorin/table/Holding.hpp"
#include "quorin/table/Reading.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quorin::json {
class Builder;
}

#pragma GCC visibility push(default)

namespace quorin::table {

/// One field of a model: under which key it stands in each form and how it gets there.
///
/// Rows are made with `field<&Model::member>(key)`, or `written` for a value that is never read back; a row that
/// departs from the common rule says so by one of the words below. A member that is not a `std::optional` is required.
struct Row {
    /// Which part of the model's object in the document gives the value.
    enum class Origin : std::uint8_t { member, whole, nowhere };

    std::string_view key{};          ///< key of the archive, and of the document unless `outer` is set
    const Holding* holds = nullptr;  ///< never null
    bool (*read)(const Node& value, void* model, const Reading& at) = nullptr;  ///< null: written, never read back
    void (*write)(const void* model, std::string_view key, json::Builder& into) = nullptr;

    std::string_view outer{};  ///< document: the object around the value, if there is one
    std::string_view inner{};  ///< document: key inside `outer`
    Origin origin = Origin::member;
    bool takesName = false;
    bool required = false;
    bool defaulted = false;
    bool lenient = false;  ///< document: a member of the map that is no object is left out alone

    /// The document keeps the value inside the object `around`, under `under`; the archive keeps it flat.
    constexpr Row inside(std::string_view around, std::string_view under) const {
        Row row = *this;
        row.outer = around;
        row.inner = under;
        return row;
    }

    /// A model that stands under a name in the document takes that name for the value, whatever its object holds.
    constexpr Row orName() const {
        Row row = *this;
        row.takesName = true;
        return row;
    }

    /// As `orName`, and the model's object is not asked at all.
    constexpr Row onlyName() const {
        Row row = orName();
        row.origin = Origin::nowhere;
        return row;
    }

    /// The document gives the model's whole object; an empty object makes no model.
    constexpr Row wholeObject() const {
        Row row = *this;
        row.origin = Origin::whole;
        return row;
    }

    /// The document may leave a required value out: the member's initializer is its default.
    constexpr Row orInitial() const {
        Row row = *this;
        row.defaulted = true;
        return row;
    }
};

/// The rows of one model, in reading order.
struct KeyTable {
    std::string_view name;
    std::string_view purpose;  ///< what the section is for: one sentence without its full stop
    std::span<const Row> rows;
    DocumentMap (*initial)();  ///< archived form of a model with its defaults and nothing else
};

/// Reads every row of `table` from the object `map` into `model`, which stands under `name` if it has one. False when a
/// required value is missing or of the wrong shape.
bool read(const KeyTable& table, void* model, const Node& map, const Reading& at,
          std::optional<std::string_view> name = {});

/// Writes the archived form; absent fields are omitted.
void write(const KeyTable& table, const void* model, json::Builder& into);

}  // namespace quorin::table

namespace quorin {
using table::KeyTable;
}

#pragma GCC visibility pop
