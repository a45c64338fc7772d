#include "Parts.hpp"
#include "tools/document/Path.hpp"

namespace quorin::page {
namespace {

using json::Value;

void takeMembers(const json::DocumentMap& map, const LineTaker& take);

void takeValue(const std::string& name, const Value& value, const LineTaker& take) {
    const auto map = value.asObject();
    const auto list = map ? std::nullopt : value.asList();
    const bool holdsObjects = list && list->size() > 0 && (*list)[0].asObject();
    if (!(map && !map->empty()) && !holdsObjects)
        return take("<li>" + element("span", name) + ": " + element("code", document::shown(value)) + "</li>");
    take("<li><details><summary>" + document::escapedHTML(name) + "</summary><ul>");
    if (map) takeMembers(*map, take);
    for (std::size_t i = 0; holdsObjects && i < list->size(); ++i)
        takeValue("[" + std::to_string(i) + "]", (*list)[i], take);
    take("</ul></details></li>");
}

void takeMembers(const json::DocumentMap& map, const LineTaker& take) {
    for (const auto& [name, value] : map) takeValue(std::string(name), value, take);
}

}  // namespace

void readersPart(const Source& source, const std::string& id, const LineTaker& take) {
    for (std::size_t i = 0; i < source.readers.size(); ++i) {
        const std::string tree = id + "-tree-" + std::to_string(i);
        const Reader& reader = source.readers[i];
        take("<details><summary>" + element("strong", reader.name) + "</summary>");
        take("<p class=\"search\" hidden><label>Search in this tree: <input type=\"search\" aria-controls=\"" + tree
             + "\" aria-describedby=\"" + tree + "-told\"></label> <span id=\"" + tree
             + "-told\" role=\"status\"></span></p>");
        take("<ul class=\"tree\" id=\"" + tree + "\">");
        takeMembers(reader.values, take);
        take("</ul></details>");
    }
}

}  // namespace quorin::page
