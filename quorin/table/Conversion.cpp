#include "quorin/table/Conversion.hpp"

namespace quorin::table {

bool isObject(const Node& value, const Reading& at) { return value.kind == Kind::object || at.reject("object", value); }

bool isListOfObjects(const Node& value, const Reading& at) {
    if (value.kind != Kind::list) return at.reject("list of objects", value);
    for (std::uint32_t i = 0; i < value.size; ++i) {
        if (value.items[i].kind == Kind::object) continue;
        Step step;
        return isObject(value.items[i], at.element(step, i, Role::listPart));
    }
    return true;
}

bool isMapOfObjects(const Node& value, const Reading& at) {
    if (value.kind != Kind::object) return at.reject("object of objects", value);
    for (std::uint32_t i = 0; i < value.size; ++i) {
        if (value.value(i).kind == Kind::object) continue;
        Step step;
        return isObject(value.value(i), at.member(step, value.name(i).string(), Role::mapPart));
    }
    return true;
}

std::optional<std::string> Conversion<std::string>::read(const Node& value, const Reading& at) {
    if (value.kind == Kind::string) return std::string(value.string());
    at.reject(shape, value);
    return std::nullopt;
}

std::optional<bool> Conversion<bool>::read(const Node& value, const Reading& at) {
    switch (value.kind) {
        case Kind::boolean: return value.boolean;
        case Kind::integer: return value.integer != 0;
        case Kind::unsignedInteger: return true;
        case Kind::real: return value.real != 0;
        default: at.rejectNumeric(shape, value); return std::nullopt;
    }
}

std::optional<Integer> Conversion<Integer>::read(const Node& value, const Reading& at) {
    constexpr double limit = 9223372036854775808.0;  // 2^63
    if (value.kind == Kind::integer) return value.integer;
    if (value.kind == Kind::boolean) return value.boolean ? 1 : 0;
    if (value.kind == Kind::real && value.real >= -limit && value.real < limit) return static_cast<Integer>(value.real);
    at.rejectNumeric(shape, value);
    return std::nullopt;
}

std::optional<std::vector<std::string>> Conversion<std::vector<std::string>>::read(const Node& value,
                                                                                   const Reading& at) {
    if (value.kind != Kind::list) return at.reject(shape, value), std::nullopt;
    std::vector<std::string> texts;
    texts.reserve(value.size);
    for (std::uint32_t i = 0; i < value.size; ++i) {
        Step step;
        auto text = Conversion<std::string>::read(value.items[i], at.element(step, i, Role::listPart));
        if (!text) return std::nullopt;
        texts.push_back(std::move(*text));
    }
    return texts;
}

void Conversion<std::vector<std::string>>::write(const std::vector<std::string>& texts, Builder& into) {
    const std::size_t begun = into.begin();
    for (const std::string& text : texts) into.string(text);
    into.endList(begun);
}

std::optional<DocumentMap> Conversion<DocumentMap>::read(const Node& value, const Reading& at) {
    return isObject(value, at) ? at.valueAt(value).asObject() : std::nullopt;
}

}  // namespace quorin::table
