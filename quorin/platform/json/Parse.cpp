#include "quorin/platform/json/Parse.hpp"

#include "quorin/platform/json/Builder.hpp"
#include "quorin/platform/json/StrictParse.hpp"

#include <simdjson.h>

#include <memory>

namespace quorin::json {
namespace {

using simdjson::dom::element;
using simdjson::dom::element_type;

/// Lays the parser's tree into a builder's arena.
class Laying {
public:
    explicit Laying(Builder& builder) : builder_(builder) {}

    /// False when the nesting is too deep.
    bool lay(element value, std::size_t depth) {
        switch (value.type()) {
            case element_type::NULL_VALUE: builder_.null(); break;
            case element_type::BOOL: builder_.boolean(value.get_bool().value_unsafe()); break;
            case element_type::INT64: builder_.integer(value.get_int64().value_unsafe()); break;
            case element_type::UINT64: builder_.unsignedInteger(value.get_uint64().value_unsafe()); break;
            case element_type::DOUBLE: builder_.real(value.get_double().value_unsafe()); break;
            case element_type::STRING: builder_.string(value.get_string().value_unsafe()); break;
            case element_type::ARRAY: return layList(value.get_array().value_unsafe(), depth + 1);
            case element_type::OBJECT: return layObject(value.get_object().value_unsafe(), depth + 1);
        }
        return true;
    }

private:
    bool layList(simdjson::dom::array list, std::size_t depth) {
        if (depth > deepestNesting) return false;
        const std::size_t begun = builder_.begin();
        for (const element item : list) {
            if (!lay(item, depth)) return false;
        }
        builder_.endList(begun);
        return true;
    }

    bool layObject(simdjson::dom::object object, std::size_t depth) {
        if (depth > deepestNesting) return false;
        const std::size_t begun = builder_.begin();
        for (const auto [name, value] : object) {
            builder_.name(name);
            if (!lay(value, depth)) return false;
        }
        builder_.endObject(begun);
        return true;
    }

    Builder& builder_;
};

/// Parsers are dear to make and keep memory for the largest text they have read: each thread has one of its own, and
/// gives it back after a text that was unusually large.
class ThreadParser {
public:
    simdjson::dom::parser& get() {
        if (!parser_) parser_ = std::make_unique<simdjson::dom::parser>();
        return *parser_;
    }
    ~ThreadParser() = default;

    void rest() {
        if (parser_ && parser_->capacity() > largestKept) parser_.reset();
    }

private:
    static constexpr std::size_t largestKept = std::size_t{1} << 18;

    std::unique_ptr<simdjson::dom::parser> parser_;
};

std::optional<Value> parseFast(std::string_view text, bool padded) {
    thread_local ThreadParser threadParser;
    std::optional<Value> value;
    element root;
    if (threadParser.get().parse(text.data(), text.size(), !padded).get(root) == simdjson::SUCCESS) {
        Builder builder(text.size() + text.size() / 4);
        if (Laying(builder).lay(root, 0)) value = builder.finish();
    }
    threadParser.rest();
    return value;
}

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

ParseResult parse(std::string_view text, std::size_t spare) {
    const std::size_t skipped = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const std::string_view body = text.substr(skipped);
    if (!body.empty()) {
        if (auto value = parseFast(body, spare >= simdjson::SIMDJSON_PADDING)) return *std::move(value);
    }
    StrictResult strict = parseStrictly(body);
    if (strict.value) return *std::move(strict.value);
    const std::size_t offset = skipped + strict.offset;
    return ParseError{offset, positionOf(text, offset), std::move(strict.message)};
}

}  // namespace quorin::json
