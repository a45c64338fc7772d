#include "Shapes.hpp"

#include "quorin/model/Feature.hpp"
#include "quorin/model/Group.hpp"
#include "quorin/platform/skell/HTTPMethod.hpp"
#include "quorin/services/ContentType.hpp"
#include "quorin/table/Conversion.hpp"

#include "Markdown.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace quorin::keys {
namespace {

using table::Conversion;

struct Shape {
    std::string_view name;
    std::string_view takes;
};

constexpr std::string_view oneOfTheTexts = "One of the texts that stand at the field, in any letter case.";

constexpr std::array told{
    Shape{Conversion<std::string>::shape, "Any text, the empty one too. A number is none."},
    Shape{Conversion<Integer>::shape,
          "A number, cut off toward zero, or a boolean: 1 or 0. Nothing beyond signed 64 bits, and no text."},
    Shape{Conversion<bool>::shape, "`true`, `false`, or a number, of which only zero is false. No text."},
    Shape{Conversion<std::vector<std::string>>::shape, "One element that is no text loses the whole list."},
    Shape{Conversion<DocumentMap>::shape, "A section of its own, `{}` too; where none is named, any object."},
    Shape{Conversion<std::vector<Group>>::shape,
          "Elements that make no section are left out. One that is no object loses the whole list."},
    Shape{Conversion<MapOf<Feature>>::shape,
          "Sections under names of your choice. Members that make no section are left out. One "
          "that is no object loses the whole map, but where the field says otherwise."},
    Shape{HTTPMethod::shape, oneOfTheTexts},
    Shape{ContentType::shape, oneOfTheTexts},
};

}  // namespace

std::string shapes() {
    std::string text = markdown::columns({"Value", "What is taken for it"});
    for (const Shape& shape : told) text += markdown::row({std::string(shape.name), std::string(shape.takes)});
    return text;
}

bool isTold(std::string_view shape) {
    return std::any_of(told.begin(), told.end(), [&](const Shape& one) { return one.name == shape; });
}

}  // namespace quorin::keys
