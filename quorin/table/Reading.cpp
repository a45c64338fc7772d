#include "quorin/table/Reading.hpp"

#include "quorin/platform/json/Pointer.hpp"

#include <algorithm>
#include <vector>

namespace quorin::table {
namespace {

std::string pointerTo(const Trail& trail) {
    std::vector<const Trail*> steps;
    for (const Trail* step = &trail; step->outer; step = step->outer) steps.push_back(step);
    std::string pointer;
    std::for_each(steps.rbegin(), steps.rend(), [&](const Trail* step) {
        if (step->key.data())
            json::appendStep(pointer, step->key);
        else
            json::appendStep(pointer, std::to_string(step->index));
    });
    return pointer;
}

/// At the least: what is escaped takes more.
std::size_t bytesOfPointerTo(const Trail& trail) {
    std::size_t bytes = 0;
    for (const Trail* step = &trail; step->outer; step = step->outer) bytes += 1 + step->key.size();
    return bytes;
}

Cost costOf(const Trail& trail) {
    switch (trail.role) {
        case Role::root: return Cost::nothingRead;
        case Role::field: return Cost::fieldAbsent;
        case Role::required: return costOf(*trail.outer);
        case Role::defaulted: return Cost::defaultUsed;
        case Role::element: return Cost::elementDropped;
        case Role::entry: return Cost::entryDropped;
        case Role::listPart: return Cost::listDropped;
        case Role::mapPart: return Cost::mapDropped;
    }
    return Cost::nothingRead;
}

/// Takes the digits at the front of `text` away. Whether there were any.
bool takeDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count > 0;
}

/// The same of the one character, if it is one of these.
bool takeOneOf(std::string_view characters, std::string_view& text) {
    if (text.empty() || characters.find(text.front()) == characters.npos) return false;
    text.remove_prefix(1);
    return true;
}

/// Whether the whole text is a number of JSON (RFC 8259 section 6).
bool isNumber(std::string_view text) {
    takeOneOf("-", text);
    if (!takeOneOf("0", text) && !takeDigits(text)) return false;
    if (takeOneOf(".", text) && !takeDigits(text)) return false;
    if (takeOneOf("eE", text)) {
        takeOneOf("+-", text);
        if (!takeDigits(text)) return false;
    }
    return text.empty();
}

/// Whether somebody put quotes around a number or a boolean, which would be taken without them.
bool isQuoted(std::string_view text) {
    constexpr std::size_t longest = 32;
    return text == "true" || text == "false" || (text.size() <= longest && isNumber(text));
}

}  // namespace

const Reading& Reading::below(Step& step, const Trail& trail) const {
    step.trail = trail;
    step.reading = *this;
    step.reading.trail_ = &step.trail;
    return step.reading;
}

std::string_view Reading::nameOfNumeric(const Node& found) {
    return found.kind == json::Kind::string && isQuoted(found.string()) ? quotedValue : nameOf(found.kind);
}

bool Reading::tell(std::string_view expected, std::string_view found) const {
    return tell(expected, found, costOf(*trail_)), false;
}

void Reading::notAsked(const Node& found) const { tell(nothing, nameOf(found.kind), Cost::notAsked); }

// A pointer is spelt out for a finding that is kept, and for no other: they may be many and long.
void Reading::tell(std::string_view expected, std::string_view found, Cost cost) const {
    if (report_->isFullFor(bytesOfPointerTo(*trail_)))
        ++report_->omitted;
    else
        report_->add({pointerTo(*trail_), expected, found, cost, {}});
}

}  // namespace quorin::table
