#include "quorin/platform/json/Position.hpp"

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Pointer.hpp"
#include "quorin/platform/json/UTF8.hpp"

#include <algorithm>
#include <map>
#include <memory>

namespace quorin::json {
namespace {

/// The pointers as a tree of their steps, so that the pass over the text descends only where one of them leads.
struct Step {
    const Step* outer = nullptr;
    std::map<std::string, Step, std::less<>> next{};
    std::optional<std::size_t> offset{};

    /// False also for what stood only in a member that a later one of the same name replaces, which begins behind it.
    bool exists() const {
        for (const Step* step = this; step->outer; step = step->outer) {
            if (!step->offset || *step->offset < *step->outer->offset) return false;
        }
        return offset.has_value();
    }
};

/// Goes over a text that is known to parse.
class Pass {
public:
    explicit Pass(std::string_view text) : text_(text) {}

    void value(Step* step) {
        skipBlanks();
        if (step) step->offset = at_;
        if (step && step->next.empty()) step = nullptr;
        if (peek() == '{')
            members(step);
        else if (peek() == '[')
            elements(step);
        else if (peek() == '"')
            skipString();
        else
            skipPlain();
    }

private:
    char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    void skipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }
    void skipPlain() { at_ = std::min(text_.find_first_of(",]} \t\r\n", at_), text_.size()); }

    std::string_view skipString() {
        const std::size_t begin = at_++;
        while (at_ < text_.size() && text_[at_] != '"') at_ += text_[at_] == '\\' ? 2 : 1;
        at_ = std::min(at_ + 1, text_.size());
        return text_.substr(begin, at_ - begin);
    }

    /// Whether another item follows; the end of the list or object is passed over.
    bool more(char end) {
        skipBlanks();
        const char c = peek();
        if (c == ',' || c == end || c == '\0') ++at_;
        skipBlanks();
        return c != end && c != '\0' && peek() != '\0';
    }

    void members(Step* step) {
        ++at_;
        skipBlanks();
        if (peek() == '}') return void(++at_);
        do {
            skipBlanks();
            const std::string_view name = skipString();
            skipBlanks();
            ++at_;  // the colon
            value(step ? memberOf(*step, name) : nullptr);
        } while (more('}'));
    }

    void elements(Step* step) {
        ++at_;
        skipBlanks();
        if (peek() == ']') return void(++at_);
        std::size_t index = 0;
        do {
            value(step ? stepTo(*step, std::to_string(index++)) : nullptr);
        } while (more(']'));
    }

    static Step* memberOf(Step& step, std::string_view quoted) {
        if (quoted.find('\\') == quoted.npos) return stepTo(step, quoted.substr(1, quoted.size() - 2));
        const ParseResult name = parse(quoted);
        return name ? stepTo(step, name.value()->node().string()) : nullptr;
    }

    static Step* stepTo(Step& step, std::string_view name) {
        const auto found = step.next.find(name);
        return found == step.next.end() ? nullptr : &found->second;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

Position moved(Position from, std::string_view over) {
    for (const char c : over) {
        if (c == '\n')
            from = {from.line + 1, 1};
        else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U)
            ++from.column;
    }
    return from;
}

std::string_view withoutMark(std::string_view text) {
    return text.substr(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
}

}  // namespace

Position positionOf(std::string_view text, std::size_t offset) {
    return moved({}, withoutMark(text.substr(0, offset)));
}

std::vector<std::optional<Position>> positionsOf(std::string_view text, const std::vector<std::string>& pointers) {
    Step root;
    const Step nowhere;
    std::vector<const Step*> ends;
    for (const std::string& pointer : pointers) {
        Step* step = &root;
        std::vector<std::string> names = stepsOf(pointer);
        if (names.size() > deepestNesting) {  // leads nowhere: no text that parses is so deep
            ends.push_back(&nowhere);
            continue;
        }
        for (std::string& name : names) step = &step->next.try_emplace(std::move(name), step).first->second;
        ends.push_back(step);
    }
    text = withoutMark(text);
    Pass(text).value(&root);

    std::map<std::size_t, Position> places;
    for (const Step* end : ends) {
        if (end->exists()) places.try_emplace(*end->offset);
    }
    std::size_t passed = 0;
    Position reached;
    for (auto& [offset, place] : places) {
        place = reached = moved(reached, text.substr(passed, offset - passed));
        passed = offset;
    }
    std::vector<std::optional<Position>> positions;
    positions.reserve(ends.size());
    for (const Step* end : ends)
        positions.push_back(end->exists() ? std::optional(places.at(*end->offset)) : std::nullopt);
    return positions;
}

}  // namespace quorin::json
