#include "quorin/platform/json/List.hpp"

#include "quorin/platform/json/Builder.hpp"

namespace quorin::json {

List::List() {
    value_.node_.kind = Kind::list;
    value_.node_.height = 1;
}

List::List(std::span<const Value> elements) {
    Builder builder;
    const std::size_t begun = builder.begin();
    for (const Value& element : elements) builder.copy(element.node());
    builder.endList(begun);
    value_ = builder.finish();
}

}  // namespace quorin::json
