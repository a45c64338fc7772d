#include "quorin/platform/skell/Response.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

namespace quorin::skell {

std::optional<std::string_view> Response::header(std::string_view name) const {
    for (const HeaderField& field : headers()) {
        if (rawvalues::sameFolded(field.name, name)) return field.value;
    }
    return std::nullopt;
}

std::vector<std::string_view> Response::allHeaders(std::string_view name) const {
    std::vector<std::string_view> values;
    for (const HeaderField& field : headers()) {
        if (rawvalues::sameFolded(field.name, name)) values.push_back(field.value);
    }
    return values;
}

}  // namespace quorin::skell
