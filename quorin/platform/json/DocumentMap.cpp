#include "quorin/platform/json/DocumentMap.hpp"

#include "quorin/platform/json/Builder.hpp"

namespace quorin::json {

DocumentMap::DocumentMap() {
    value_.node_.kind = Kind::object;
    value_.node_.height = 1;
}

DocumentMap::DocumentMap(std::span<const Member> members) {
    Builder builder;
    const std::size_t begun = builder.begin();
    for (const auto& [name, value] : members) {
        builder.name(name);
        builder.copy(value.node());
    }
    builder.endObject(begun);
    value_ = builder.finish();
}

std::optional<Value> DocumentMap::find(std::string_view name) const {
    const Node* const found = json::find(node(), name);
    return found ? std::optional(value_.at(*found)) : std::nullopt;
}

DocumentMap DocumentMap::with(std::string_view name, const Value& value) const {
    Builder builder;
    const std::size_t begun = builder.begin();
    for (std::uint32_t i = 0; i < node().size; ++i) {
        if (node().name(i).string() == name) continue;
        builder.share(node().name(i));
        builder.share(node().value(i));
    }
    builder.name(name);
    builder.share(value.node());
    builder.endObject(begun);
    builder.keep(value_, value);
    return DocumentMap(builder.finish());
}

DocumentMap::Member DocumentMap::at(std::size_t position) const {
    const auto member = static_cast<std::uint32_t>(position);
    return {node().name(member).string(), value_.at(node().value(member))};
}

}  // namespace quorin::json
