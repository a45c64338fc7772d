#include "ValueAt.hpp"

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/platform/json/List.hpp"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace quorin::document {
namespace {

std::optional<json::Value> elementAt(const json::List& list, std::string_view step) {
    std::size_t index = 0;
    const auto read = std::from_chars(step.data(), step.data() + step.size(), index);
    const bool isPlain = step == "0" || !step.starts_with('0');  // RFC 6901, section 4
    const bool isIndex = isPlain && read.ec == std::errc() && read.ptr == step.data() + step.size();
    if (!isIndex || index >= list.size()) return std::nullopt;
    return list[index];
}

}  // namespace

std::optional<json::Value> below(const json::Value& value, std::string_view step) {
    if (const auto map = value.asObject()) return map->find(step);
    if (const auto list = value.asList()) return elementAt(*list, step);
    return std::nullopt;
}

std::optional<json::Value> valueAt(const json::DocumentMap& map, const std::vector<std::string>& steps) {
    std::optional<json::Value> value(map);
    for (const std::string& step : steps) {
        if (value) value = below(*value, step);
    }
    return value;
}

}  // namespace quorin::document
