#include "quorin/platform/json/Parse.hpp"

#include "quorin/platform/json/Members.hpp"
#include "quorin/platform/json/StrictParse.hpp"
#include "quorin/platform/json/UTF8.hpp"

#include <simdjson.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <utility>

namespace quorin::json {
namespace {

using simdjson::dom::element;
using simdjson::dom::element_type;

/// Lays the parser's tree into an arena, from the top down: the sizes of lists and objects are known before their
/// items.
class Laying {
public:
    explicit Laying(Arena& arena) : arena_(arena) {}

    /// False when the nesting is too deep.
    bool lay(element value, Node& into) {
        switch (value.type()) {
            case element_type::NULL_VALUE: break;
            case element_type::BOOL:
                into.kind = Kind::boolean;
                into.boolean = value.get_bool().value_unsafe();
                break;
            case element_type::INT64:
                into.kind = Kind::integer;
                into.integer = value.get_int64().value_unsafe();
                break;
            case element_type::UINT64:
                into.kind = Kind::unsignedInteger;
                into.unsignedInteger = value.get_uint64().value_unsafe();
                break;
            case element_type::DOUBLE:
                into.kind = Kind::real;
                into.real = value.get_double().value_unsafe();
                break;
            case element_type::STRING: layText(value.get_string().value_unsafe(), into); break;
            case element_type::ARRAY: return layList(value.get_array().value_unsafe(), into);
            case element_type::OBJECT: return layObject(value.get_object().value_unsafe(), into);
        }
        return true;
    }

private:
    void layText(std::string_view text, Node& into) {
        into.kind = Kind::string;
        into.size = static_cast<std::uint32_t>(text.size());
        into.text = arena_.text(text);
    }

    bool layList(simdjson::dom::array list, Node& into) {
        const std::uint32_t count = sizeOf(list);
        Node* const items = arena_.nodes(count);
        if (!open(into, Kind::list, items)) return false;
        for (const element item : list) {
            if (!lay(item, *new (items + into.size++) Node)) return false;
            raise(into, items[into.size - 1]);
        }
        return close();
    }

    bool layObject(simdjson::dom::object object, Node& into) {
        const std::uint32_t count = sizeOf(object);
        Node* const items = arena_.nodes(std::size_t{2} * count, indexBytes(count));
        if (!open(into, Kind::object, items)) return false;
        Node* next = items;
        for (auto member = object.begin(); member != object.end(); ++member) {
            layText(member.key(), *new (next++) Node);
            if (!lay(member.value(), *new (next++) Node)) return false;
            raise(into, next[-1]);
        }
        into.size = settleMembers(items, count);
        return close();
    }

    bool open(Node& into, Kind kind, const Node* items) {
        into.kind = kind;
        into.height = 1;
        into.items = items;
        return ++depth_ <= deepestNesting;
    }

    bool close() {
        --depth_;
        return true;
    }

    static void raise(Node& around, const Node& inner) {
        around.height = std::max(around.height, static_cast<std::uint16_t>(inner.height + 1));
    }

    /// The parser's own count ends at 2^24 - 1.
    template <class Container>
    static std::uint32_t sizeOf(const Container& container) {
        constexpr std::size_t saturated = 0xFFFFFF;
        const std::size_t size = container.size();
        if (size < saturated) return static_cast<std::uint32_t>(size);
        return static_cast<std::uint32_t>(std::distance(container.begin(), container.end()));
    }

    Arena& arena_;
    std::size_t depth_ = 0;
};

using Parser = simdjson::dom::parser;

/// The parser of this thread, kept from one text to the next because it is dear to make. Bare data, so that it can
/// still be asked when the thread's objects are gone: handlers of an exit may parse too.
struct ThreadParser {
    Parser* parser;
    bool isGone;
};
thread_local constinit ThreadParser threadParser{nullptr, false};

/// Ends the parser with its thread.
struct ThreadEnd {
    ~ThreadEnd() {
        delete std::exchange(threadParser.parser, nullptr);
        threadParser.isGone = true;
    }
};

/// A parser for one text. It keeps memory for the largest it has read, so one that was unusually large takes it away.
class Lease {
public:
    Lease() : parser_(std::exchange(threadParser.parser, nullptr)) {
        if (!parser_) parser_ = std::make_unique<Parser>();
    }
    ~Lease() {
        if (threadParser.isGone || parser_->capacity() > largestKept) return;
        thread_local const ThreadEnd end;
        threadParser.parser = parser_.release();
    }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;

    Parser& operator*() const { return *parser_; }

private:
    static constexpr std::size_t largestKept = std::size_t{1} << 18;

    std::unique_ptr<Parser> parser_;
};

std::optional<Value> laid(element root, std::size_t textSize) {
    ArenaPointer arena = ArenaPointer::make(2 * textSize);
    Node top;
    if (!Laying(*arena).lay(root, top)) return std::nullopt;
    return Value(top, std::move(arena));
}

std::optional<Value> parseFast(std::string_view text, bool padded) {
    const Lease parser;
    element root;
    const bool reads = (*parser).parse(text.data(), text.size(), !padded).get(root) == simdjson::SUCCESS;
    return reads ? laid(root, text.size()) : std::nullopt;
}

}  // namespace

ParseResult parse(std::string_view text, std::size_t spare) {
    const std::size_t skipped = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const std::string_view body = text.substr(skipped);
    if (!body.empty()) {
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the value that is returned owns the arena
        if (auto value = parseFast(body, spare >= simdjson::SIMDJSON_PADDING)) return *std::move(value);
    }
    StrictResult strict = parseStrictly(body);
    if (strict.value) return *std::move(strict.value);
    const std::size_t offset = skipped + strict.offset;
    return ParseError{offset, positionOf(text, offset), std::move(strict.message)};
}

}  // namespace quorin::json
