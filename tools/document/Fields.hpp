#pragma once

#include "quorin/table/KeyTable.hpp"

#include "Path.hpp"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quorin::document {

/// The values of one field in several configurations, in their order; null where one has none. They stand in the
/// archived forms that are walked and live as long.
using Nodes = std::vector<const json::Node*>;

/// One field of the configurations that are walked together.
struct Field {
    enum class Kind : std::uint8_t {
        value,     ///< a text, a number, a boolean, a list of texts, or anything that stands in a feature
        object,    ///< of a feature, in all that have the field, and not deeper than `deepestObject`
        section,   ///< the one of its name: "videoPlayer", "videoPlayer.ads"
        entries,   ///< a map of sections: "webservices", "features"
        elements,  ///< a list of sections: "groups"
        entry,     ///< one section of a map
        endpoint,  ///< one section of the map of web services
        element,   ///< one section of a list
    };

    const Path& path;
    Kind kind;
    const Nodes& values;         ///< one or more are not null
    const KeyTable* table = {};  ///< how a section is read, or those in a map or a list; null where none are

    /// Whether the configuration at `position` has the field and nothing below it.
    bool isBare(std::size_t position) const;
};

/// Objects within a feature that are fields of their own stand at most so far below it; deeper ones are values, so that
/// no path grows without end.
inline constexpr int deepestObject = 8;

/// What is done with a field; whether the walk goes on with the fields below it.
using Visitor = std::function<bool(const Field&)>;

/// Visits every field that one or more of the sections have, in the order of the key table, entries in byte order of
/// their names. Nothing inside a feature is read by a table: its members are fields, and those of objects among them.
/// What is read from no document (stamps), or from nothing but the name of its section, is no field.
/// `sections` are archived forms; `at` is where they stand, null for whole configurations.
void walk(const KeyTable& table, const Path* at, const Nodes& sections, const Visitor& visit);

}  // namespace quorin::document
