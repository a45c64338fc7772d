#pragma once

#include "quorin/table/Document.hpp"
#include "quorin/table/KeyTable.hpp"
#include "quorin/table/ReadReport.hpp"

#include <optional>
#include <string_view>

#pragma GCC visibility push(default)

/// What every model of the configuration can do, told once. A model is a plain record: its members, their `Keys`, and
/// its key table; the functions below follow that table.
namespace quorin::section {

/// Reads either form; the three functions below are it.
template <class Model>
std::optional<Model> read(const DocumentMap& map, table::Form form, ReadReport* report,
                          std::optional<std::string_view> name = {}) {
    std::optional<Model> model(std::in_place);
    const table::Reading top(form, map.value(), report);
    if (!table::read(Model::keyTable(), &*model, map.node(), top, name)) model.reset();
    return model;
}

/// Reads the server document. Empty when a required value is missing or of the wrong type; any other such value is left
/// absent. What is not taken is added to `report`, if one is given.
template <class Model>
std::optional<Model> fromJSON(const DocumentMap& json, ReadReport* report) {
    return read<Model>(json, table::Form::document, report);
}

/// As above, for a model that stands under `name` in the document.
template <class Model>
std::optional<Model> fromJSON(const DocumentMap& json, std::string_view name, ReadReport* report) {
    return read<Model>(json, table::Form::document, report, name);
}

/// Reads what `encode` wrote.
template <class Model>
std::optional<Model> fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return read<Model>(encoded, table::Form::archive, report);
}

/// The archived form; absent fields have no key.
DocumentMap encode(const KeyTable& table, const void* model);

/// The same, by the model's own table.
template <class Model>
DocumentMap encode(const Model& model) {
    return encode(Model::keyTable(), &model);
}

}  // namespace quorin::section

#pragma GCC visibility pop
