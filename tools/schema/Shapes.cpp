#include "tools/schema/Shapes.hpp"

#include "quorin/model/Feature.hpp"
#include "quorin/model/Group.hpp"
#include "quorin/platform/skell/HTTPMethod.hpp"
#include "quorin/services/ContentType.hpp"
#include "quorin/table/Conversion.hpp"

#include "tools/schema/Reference.hpp"
#include "tools/schema/Texts.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace quorin::schema {
namespace {

using json::DocumentMap;
using table::Conversion;
using table::Holding;

DocumentMap text(const Holding&) { return {{"type", "string"}}; }

DocumentMap integer(const Holding&) {
    return {{"type", json::List{"number", "boolean"}},
            {"minimum", std::numeric_limits<Integer>::min()},
            {"maximum", std::numeric_limits<Integer>::max()}};
}

DocumentMap boolean(const Holding&) { return {{"type", json::List{"boolean", "number"}}}; }

DocumentMap texts(const Holding&) { return {{"type", "array"}, {"items", DocumentMap{{"type", "string"}}}}; }

DocumentMap object(const Holding& holds) {
    return holds.section ? referenceTo(holds.section().name) : DocumentMap{{"type", "object"}};
}

DocumentMap sections(const Holding& holds) { return {{"type", "array"}, {"items", referenceTo(holds.section().name)}}; }

DocumentMap namedSections(const Holding& holds) {
    return {{"type", "object"}, {"additionalProperties", referenceTo(holds.section().name)}};
}

DocumentMap oneOfTheTexts(const Holding& holds) { return anyCaseOf(holds.texts); }

constexpr std::string_view takesOneOfTheTexts = "One of the texts that stand at the field, in any letter case.";

constexpr std::array told{
    Shape{Conversion<std::string>::shape, "Any text, the empty one too. A number is none.", text},
    Shape{Conversion<Integer>::shape,
          "A number, cut off toward zero, or a boolean: 1 or 0. Nothing beyond signed 64 bits, and no text.", integer},
    Shape{Conversion<bool>::shape, "`true`, `false`, or a number, of which only zero is false. No text.", boolean},
    Shape{Conversion<std::vector<std::string>>::shape, "One element that is no text loses the whole list.", texts},
    Shape{Conversion<DocumentMap>::shape, "A section of its own, `{}` too; where none is named, any object.", object},
    Shape{Conversion<std::vector<Group>>::shape,
          "Elements that make no section are left out. One that is no object loses the whole list.", sections},
    Shape{Conversion<MapOf<Feature>>::shape,
          "Sections under names of your choice. Members that make no section are left out. One "
          "that is no object loses the whole map, but where the field says otherwise.",
          namedSections},
    Shape{HTTPMethod::shape, takesOneOfTheTexts, oneOfTheTexts},
    Shape{ContentType::shape, takesOneOfTheTexts, oneOfTheTexts},
};

}  // namespace

std::span<const Shape> shapes() { return told; }

const Shape* shapeOf(std::string_view name) {
    const auto* const found =
        std::find_if(told.begin(), told.end(), [&](const Shape& one) { return one.name == name; });
    return found == told.end() ? nullptr : found;
}

}  // namespace quorin::schema
