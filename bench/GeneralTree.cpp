#include "bench/Competitors.hpp"

#include <nlohmann/json.hpp>

namespace quorin::bench {
namespace {

using nlohmann::json;

json treeOf(const Value& value) {
    if (const auto text = value.asString()) return std::string(*text);
    if (const auto truth = value.asBoolean()) return *truth;
    if (const auto number = value.asInteger()) return *number;
    if (const auto number = value.asReal()) return *number;
    if (const auto list = value.asList()) {
        json tree = json::array();
        for (std::size_t i = 0; i < list->size(); ++i) tree.push_back(treeOf((*list)[i]));
        return tree;
    }
    if (const auto map = value.asObject()) {
        json tree = json::object();
        for (const auto& [name, member] : *map) tree.emplace(name, treeOf(member));
        return tree;
    }
    return nullptr;
}

}  // namespace

GeneralTree GeneralTree::of(const DocumentMap& archive) {
    GeneralTree made;
    made.tree_ = std::make_shared<const json>(treeOf(archive.value()));
    return made;
}

bool GeneralTree::operator==(const GeneralTree& other) const {
    return *static_cast<const json*>(tree_.get()) == *static_cast<const json*>(other.tree_.get());
}

}  // namespace quorin::bench
