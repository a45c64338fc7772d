#include "Explanation.hpp"

#include "quorin/platform/json/Pointer.hpp"
#include "quorin/table/FindingKind.hpp"

#include "Path.hpp"
#include "ValueAt.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

constexpr std::size_t longestShown = 60;

bool isBelow(std::string_view pointer, std::string_view above) {
    return pointer.starts_with(above) && (pointer.size() == above.size() || pointer[above.size()] == '/');
}

/// What stands there, in a few words.
std::string inWords(const json::Value& value) {
    if (const auto map = value.asObject()) return "object of " + std::to_string(map->size());
    if (const auto list = value.asList()) return "list of " + std::to_string(list->size());
    const auto text = value.asString();
    return text ? shown(json::Value(beginning(*text, longestShown))) : shown(value);
}

bool isLoss(const Finding& finding) { return finding.cost != Cost::notAsked && finding.cost != Cost::overridden; }

/// The pointer to all that a finding took along, in a document in which sections stand below `base`.
std::string lostWith(const Finding& finding, std::string_view base) {
    const std::string& pointer = finding.pointer;
    switch (finding.cost) {
        case Cost::listDropped:
        case Cost::mapDropped: return pointer.substr(0, pointer.rfind('/'));
        case Cost::elementDropped:
        case Cost::entryDropped: return pointer.substr(0, pointer.find('/', pointer.find('/', base.size() + 1) + 1));
        default: return pointer;
    }
}

class Explaining {
public:
    Explaining(const DocumentMap& document, std::optional<Brand> brand, const FieldPath& field)
        : brand_(brand), field_(field), view_{.brands = {}, .section = BrandSection::of(document, brand)} {}

    Explanation run(std::string_view text) && {
        ReadReport report;
        const DocumentMap values = view_.configuration(&report).encode();
        report_ = view_.section.reportOfDocument(std::move(report));
        addSection();
        alignElements();
        const std::string pointer = addSteps();
        addCaller();
        if (!field_.archived.empty()) made_.value = valueAt(values, field_.archived);
        made_.reason = reasonAt(pointer);
        locate(text);
        return std::move(made_);
    }

private:
    /// Elements that were dropped are missing in the archived form: those behind them stand elsewhere in it.
    void alignElements() {
        auto& inDocument = field_.inDocument;
        if (inDocument.size() < 2 || field_.archived.size() < 2 || inDocument[0] != Configuration::Keys::groups) return;
        std::string list = above_;
        json::appendStep(list, inDocument[0]);
        const auto isDropped = [&](std::size_t index) {
            const std::string element = list + "/" + std::to_string(index);
            const auto takes = [&](const Finding& one) {
                return one.cost == Cost::elementDropped && lostWith(one, above_) == element;
            };
            return std::any_of(report_.findings.begin(), report_.findings.end(), takes);
        };
        const auto all = view_.section.map.find(inDocument[0]);
        const std::size_t size = all && all->asList() ? all->asList()->size() : 0;
        for (std::size_t index = 0, kept = 0; index < size; ++index) {
            const bool dropped = isDropped(index);
            const std::string& given = field_.isByDocument ? inDocument[1] : field_.archived[1];
            if (given == std::to_string(field_.isByDocument ? index : kept) && !(dropped && !field_.isByDocument)) {
                field_.archived[1] = dropped ? "dropped" : std::to_string(kept);
                inDocument[1] = std::to_string(index);
                return;
            }
            if (!dropped) ++kept;
        }
    }

    bool asksForServices() const {
        return !field_.inDocument.empty() && field_.inDocument.front() == Configuration::Keys::webServices;
    }

    void addSection() {
        made_.chain.push_back({.what = "document", .found = "object"});
        const std::string asked = brand_ ? std::string(brand_->name()) : std::string();
        if (view_.section.name.empty()) {
            made_.chain.push_back({.what = brand_ ? "no section of " + asked : "no brand is asked for",
                                   .found = "the whole document is read"});
            return;
        }
        json::appendStep(above_, view_.section.name);
        made_.chain.push_back({.what = "section of " + asked, .pointer = above_, .found = "object"});
        if (!asksForServices() || !view_.section.takesServices) return;
        above_.clear();
        made_.chain.push_back({.what = "web services of the document", .found = "stand in place of the section's own"});
    }

    /// Yields where the field stands, or would.
    std::string addSteps() {
        std::string pointer = above_;
        std::optional<json::Value> value(view_.section.map);
        for (const std::string& step : field_.inDocument) {
            json::appendStep(pointer, step);
            if (value) {
                value = below(*value, step);
                made_.chain.push_back(
                    {.what = step, .pointer = pointer, .found = value ? document::inWords(*value) : "nothing"});
            }
        }
        return pointer;
    }

    void addCaller() {
        const bool isTemplate =
            asksForServices() && !field_.archived.empty() && field_.archived.back() == WebService::Keys::url;
        made_.chain.push_back({.what = "the caller's arguments",
                               .found = isTemplate ? "fill the placeholders of each request" : "change nothing here"});
    }

    /// What took the field along, or what took its place.
    std::string reasonAt(std::string_view pointer) const {
        for (const Finding& finding : report_.findings) {
            if (!isLoss(finding)) continue;
            if (made_.value && finding.cost != Cost::defaultUsed) continue;
            const bool isInField = !field_.isAround && isBelow(finding.pointer, pointer);
            if (isBelow(pointer, lostWith(finding, above_)) || isInField) return inWords(finding);
        }
        const bool isThere = made_.chain[made_.chain.size() - 2].found != "nothing";
        if (made_.value) return isThere ? "" : "the document does not hold it, and this is the default";
        if (field_.inDocument.empty() && view_.section.name.empty())
            return "what stands there makes no section; the whole document is read";
        if (!isThere) return "the document does not hold it";
        return field_.isAround ? "readers ask for what is in it, not for it" : "no reader asks for it";
    }

    static std::string inWords(const Finding& finding) {
        return finding.pointer + ": expected " + std::string(finding.expected) + ", found " + std::string(finding.found)
               + "; " + std::string(nameOf(finding.cost)) + "; " + std::string(kindOf(finding).hint);
    }

    void locate(std::string_view text) {
        std::vector<std::string> pointers;
        pointers.reserve(made_.chain.size());
        for (const Link& link : made_.chain) pointers.push_back(link.pointer);
        const auto positions = json::positionsOf(text, pointers);
        for (std::size_t i = 0; i < made_.chain.size(); ++i) {
            Link& link = made_.chain[i];
            if (i == 0 || !link.pointer.empty()) link.position = positions[i];
        }
    }

    const std::optional<Brand> brand_;
    FieldPath field_;
    const BrandView view_;
    ReadReport report_{};
    std::string above_{};
    Explanation made_{};
};

}  // namespace

Explanation explained(const DocumentMap& document, std::string_view text, std::optional<Brand> brand,
                      const FieldPath& field) {
    return Explaining(document, brand, field).run(text);
}

}  // namespace quorin::document
