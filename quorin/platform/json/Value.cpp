#include "quorin/platform/json/Value.hpp"

#include "quorin/platform/json/Builder.hpp"

#include <cmath>
#include <limits>

namespace quorin::json {

Value::Value(bool value) {
    node_.kind = Kind::boolean;
    node_.boolean = value;
}

Value::Value(double value) {
    if (!std::isfinite(value)) return;
    node_.kind = Kind::real;
    node_.real = value;
}

Value::Value(std::string_view text) {
    Builder builder(text.size());
    builder.string(text);
    *this = builder.finish();
}

Value::Value(DocumentMap map) : Value(std::move(map.value_)) {}
Value::Value(List list) : Value(std::move(list.value_)) {}

Value Value::ofSigned(Integer value) {
    Value made;
    made.node_.kind = Kind::integer;
    made.node_.integer = value;
    return made;
}

Value Value::ofUnsigned(std::uint64_t value) {
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<Integer>::max()))
        return ofSigned(static_cast<Integer>(value));
    Value made;
    made.node_.kind = Kind::unsignedInteger;
    made.node_.unsignedInteger = value;
    return made;
}

std::optional<bool> Value::asBoolean() const {
    return kind() == Kind::boolean ? std::optional(node_.boolean) : std::nullopt;
}

std::optional<Integer> Value::asInteger() const {
    return kind() == Kind::integer ? std::optional(node_.integer) : std::nullopt;
}

std::optional<std::uint64_t> Value::asUnsigned() const {
    return kind() == Kind::unsignedInteger ? std::optional(node_.unsignedInteger) : std::nullopt;
}

std::optional<double> Value::asReal() const { return kind() == Kind::real ? std::optional(node_.real) : std::nullopt; }

std::optional<std::string_view> Value::asString() const {
    return kind() == Kind::string ? std::optional(node_.string()) : std::nullopt;
}

std::optional<List> Value::asList() const { return kind() == Kind::list ? std::optional(List(*this)) : std::nullopt; }

std::optional<DocumentMap> Value::asObject() const {
    return kind() == Kind::object ? std::optional(DocumentMap(*this)) : std::nullopt;
}

}  // namespace quorin::json
