#include "Parts.hpp"
#include "tools/document/Path.hpp"

namespace quorin::page {
namespace {

using json::Value;

void takeMembers(const json::DocumentMap& map, const LineTaker& take);

void takeValue(const std::string& name, const Value& value, const LineTaker& take) {
    const auto map = value.asObject();
    const auto list = map ? std::nullopt : value.asList();
    const bool holdsObjects = list && !list->empty() && (*list)[0].asObject();
    if (!(map && !map->empty()) && !holdsObjects)
        return take("<li>" + element("span", name + ":") + " " + element("code", document::shown(value)) + "</li>");
    take("<li><details><summary>" + document::escapedHTML(name) + "</summary><ul>");
    if (map) takeMembers(*map, take);
    for (std::size_t i = 0; holdsObjects && i < list->size(); ++i)
        takeValue("[" + std::to_string(i) + "]", (*list)[i], take);
    take("</ul></details></li>");
}

void takeMembers(const json::DocumentMap& map, const LineTaker& take) {
    for (const auto& [name, value] : map) takeValue(std::string(name), value, take);
}

/// Shown by the script that makes it work.
void takeSearch(const std::string& tree, const LineTaker& take) {
    const std::string told = tree + "-told";
    take("<p class=\"search\" hidden><label>Search in this tree <input type=\"search\" aria-controls=\"" + tree
         + "\" aria-describedby=\"" + told + "\"></label>");
    take("<span id=\"" + told + "\" role=\"status\"></span></p>");
}

}  // namespace

void readersPart(const Source& source, const std::string& id, const LineTaker& take) {
    for (std::size_t i = 0; i < source.readers.size(); ++i) {
        const std::string tree = id + "-tree-" + std::to_string(i);
        const Reader& reader = source.readers[i];
        take("<details><summary>" + element("strong", reader.name) + "</summary>");
        takeSearch(tree, take);
        take("<ul class=\"tree\" id=\"" + tree + "\">");
        if (reader.values.empty()) take("<li>Nothing that a reader takes.</li>");
        takeMembers(reader.values, take);
        take("</ul></details>");
    }
}

}  // namespace quorin::page
