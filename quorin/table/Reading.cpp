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

/// Whether somebody meant a number or a boolean, without the grammar of them.
bool looksNumeric(std::string_view text) {
    if (text == "true" || text == "false") return true;
    constexpr std::size_t longest = 32;
    const bool begins =
        !text.empty() && text.size() <= longest && (text[0] == '-' || (text[0] >= '0' && text[0] <= '9'));
    return begins && text != "-" && text.find_first_not_of("0123456789+-.eE") == text.npos;
}

}  // namespace

const Reading& Reading::below(Step& step, const Trail& trail) const {
    step.trail = trail;
    step.reading = *this;
    step.reading.trail_ = &step.trail;
    return step.reading;
}

std::string_view Reading::nameOfNumeric(const Node& found) {
    const bool isQuoted = found.kind == json::Kind::string && looksNumeric(found.string());
    return isQuoted ? quotedValue : nameOf(found.kind);
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
