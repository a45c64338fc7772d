#include "quorin/platform/json/Position.hpp"

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Pointer.hpp"
#include "quorin/platform/json/Scan.hpp"
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

class Pass : private Scan {
public:
    explicit Pass(std::string_view text) : Scan(text) {}

    void value(Step* step) {
        skipBlanks();
        if (step) step->offset = at();
        const bool isEntered = step && !step->next.empty();
        if (peek() == '{')
            isEntered ? members(*step) : skipContainer();
        else if (peek() == '[')
            isEntered ? elements(*step) : skipContainer();
        else if (peek() == '"')
            skipString();
        else
            skipPlain();
    }

private:
    void members(Step& step) {
        if (!begins('}')) return;
        do {
            const std::string_view name = skipName();
            value(memberOf(step, name));
        } while (more('}'));
    }

    void elements(Step& step) {
        if (!begins(']')) return;
        std::size_t index = 0;
        do {
            value(stepTo(step, std::to_string(index++)));
        } while (more(']'));
    }

    static Step* memberOf(Step& step, std::string_view quoted) {
        const std::optional<std::string> name = nameIn(quoted);
        return name ? stepTo(step, *name) : nullptr;
    }

    static Step* stepTo(Step& step, std::string_view name) {
        const auto found = step.next.find(name);
        return found == step.next.end() ? nullptr : &found->second;
    }
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
