#include "quorin/table/Section.hpp"

#include "quorin/platform/json/Builder.hpp"

namespace quorin::section {

DocumentMap encode(const KeyTable& table, const void* model) {
    json::Builder builder;
    table::write(table, model, builder);
    return *builder.finish().asObject();
}

}  // namespace quorin::section
