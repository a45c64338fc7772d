#include "Sections.hpp"

#include "quorin/model/Configuration.hpp"
#include "quorin/platform/json/Print.hpp"
#include "quorin/table/Conversion.hpp"

#include "Markdown.hpp"
#include "tools/schema/Shapes.hpp"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace quorin::keys {
namespace {

using markdown::code;
using table::Row;

/// One section where it stands: below a brand's section, at `pointer`. Where it makes no section, that costs `loss`.
struct Place {
    const KeyTable& table;
    std::string pointer;
    Cost loss;
};

std::string shapeOf(const Row& row) {
    if (schema::shapeOf(row.holds->shape)) return std::string(row.holds->shape);
    std::fprintf(stderr, "nothing is told of the shape \"%s\"\n", std::string(row.holds->shape).c_str());
    std::exit(1);
}

std::string pathOf(const Row& row) {
    if (row.origin == Row::Origin::whole) return "";
    return row.outer.empty() ? std::string(row.key) : std::string(row.outer) + "/" + std::string(row.inner);
}

std::string keyCell(const Row& row) {
    if (row.takesName) return "the section's own name";
    return row.origin == Row::Origin::whole ? "the whole object" : code(pathOf(row));
}

std::string valueCell(const Row& row) {
    std::string text = shapeOf(row);
    if (row.takesName) return text;
    if (row.holds->section) {
        const std::string name(row.holds->section().name);
        text += ": [" + name + "](#" + rawvalues::lowered(name) + ")";
    }
    if (!row.holds->texts.empty()) text += ": " + markdown::listed(row.holds->texts);
    if (row.lenient) text += "; " + std::string(schema::lenientWords);
    return text;
}

std::string lossCell(const Place& place, const Row& row) {
    if (row.takesName) return "";
    if (row.origin == Row::Origin::whole) return std::string(nameOf(place.loss)) + " where it is empty";
    if (!row.required) return std::string(nameOf(Cost::fieldAbsent));
    if (!row.defaulted) return std::string(nameOf(place.loss));
    const auto initial = place.table.initial().find(row.key);
    return std::string(nameOf(Cost::defaultUsed)) + ": " + code(initial ? json::print(*initial) : "");
}

std::string archiveCell(const Row& row) {
    const bool differs = row.takesName || pathOf(row) != row.key;
    return differs ? code(row.key) : "";
}

/// A private member is read by the function of its name.
std::string memberCell(const KeyTable& table, const Row& row) {
    std::string member(row.holds->member);
    if (member.ends_with('_')) member.replace(member.size() - 1, 1, "()");
    return code(std::string(table.name) + "::" + member);
}

std::string rowsOf(const Place& place) {
    std::string text = markdown::columns({"Key", "Value", "When missing or wrong", "Key in the archive", "C++"});
    for (const Row& row : place.table.rows) {
        if (!row.read) continue;
        text += markdown::row(
            {keyCell(row), valueCell(row), lossCell(place, row), archiveCell(row), memberCell(place.table, row)});
    }
    return text;
}

std::string writtenOf(const KeyTable& table) {
    std::string text;
    for (const Row& row : table.rows) {
        if (!row.read) text += (text.empty() ? "" : ", ") + code(row.key);
    }
    return text.empty() ? "" : "\nWritten to the archive, and read from no document: " + text + ".\n";
}

Place below(const Place& place, const Row& row) {
    const std::string pointer = place.pointer + "/" + pathOf(row);
    const KeyTable& table = row.holds->section();
    if (row.holds->shape == table::Conversion<MapOf<Feature>>::shape)
        return {table, pointer + "/NAME", Cost::entryDropped};
    if (row.holds->shape == table::Conversion<std::vector<Group>>::shape)
        return {table, pointer + "/INDEX", Cost::elementDropped};
    return {table, pointer, Cost::fieldAbsent};
}

std::string sectionsFrom(const Place& place) {
    std::string text = "\n## " + std::string(place.table.name) + "\n\n" + std::string(place.table.purpose) + ".";
    text += place.pointer.empty() ? " The top of a section.\n" : " Stands at " + code(place.pointer) + ".\n";
    text += "\n" + rowsOf(place) + writtenOf(place.table);
    for (const Row& row : place.table.rows) {
        if (row.holds->section) text += sectionsFrom(below(place, row));
    }
    return text;
}

}  // namespace

std::string sections() { return sectionsFrom({Configuration::keyTable(), "", Cost::nothingRead}); }

}  // namespace quorin::keys
