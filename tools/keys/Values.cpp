#include "Values.hpp"

#include "Markdown.hpp"
#include "tools/schema/Shapes.hpp"

namespace quorin::keys {

std::string values() {
    std::string text = markdown::columns({"Value", "What is taken for it"});
    for (const schema::Shape& shape : schema::shapes())
        text += markdown::row({std::string(shape.name), std::string(shape.takes)});
    return text;
}

}  // namespace quorin::keys
