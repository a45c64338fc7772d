#include "Explanation.hpp"

#include "quorin/platform/json/Pointer.hpp"
#include "quorin/table/FindingKind.hpp"

#include "Path.hpp"

#include <algorithm>
#include <charconv>

namespace quorin::document {
namespace {

constexpr std::size_t longestShown = 60;

std::optional<json::Value> elementAt(const json::List& list, std::string_view step) {
    std::size_t index = 0;
    const auto read = std::from_chars(step.data(), step.data() + step.size(), index);
    if (read.ptr != step.data() + step.size() || step.empty() || index >= list.size()) return std::nullopt;
    return list[index];
}

std::optional<json::Value> below(const json::Value& value, std::string_view step) {
    if (const auto map = value.asObject()) return map->find(step);
    if (const auto list = value.asList()) return elementAt(*list, step);
    return std::nullopt;
}

std::optional<json::Value> valueAt(const DocumentMap& map, const std::vector<std::string>& steps) {
    std::optional<json::Value> value(map);
    for (const std::string& step : steps) {
        if (value) value = below(*value, step);
    }
    return value;
}

bool isBelow(std::string_view pointer, std::string_view above) {
    return pointer.starts_with(above) && (pointer.size() == above.size() || pointer[above.size()] == '/');
}

class Explaining {
public:
    Explaining(const DocumentMap& document, std::optional<Brand> brand, const FieldPath& field)
        : brand_(brand), field_(field), view_{.brands = {}, .section = BrandSection::of(document, brand)} {}

    Explanation run(std::string_view text) && {
        ReadReport report;
        made_.value = valueAt(view_.configuration(&report).encode(), field_.archived);
        addSection();
        const std::string pointer = addSteps();
        addCaller();
        if (!made_.value) made_.reason = reasonAt(pointer, view_.section.reportOfDocument(std::move(report)));
        locate(text);
        return std::move(made_);
    }

private:
    bool asksForServices() const { return field_.inDocument.front() == Configuration::Keys::webServices; }

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
                made_.chain.push_back({.what = step,
                                       .pointer = pointer,
                                       .found = value ? shownShortly(*value, longestShown) : "nothing"});
            }
        }
        return pointer;
    }

    void addCaller() {
        const bool isTemplate = asksForServices() && field_.archived.back() == WebService::Keys::url;
        made_.chain.push_back({.what = "the caller's arguments",
                               .found = isTemplate ? "fill the placeholders of each request" : "change nothing here"});
    }

    /// What the reader did not take at the field, above it, or below it where that took the field along.
    static std::string reasonAt(std::string_view pointer, const ReadReport& report) {
        for (const Finding& finding : report.findings) {
            const bool lost = finding.cost != Cost::notAsked && finding.cost != Cost::overridden;
            if (!lost || !(isBelow(pointer, finding.pointer) || isBelow(finding.pointer, pointer))) continue;
            return finding.pointer + ": expected " + std::string(finding.expected) + ", found "
                   + std::string(finding.found) + "; " + std::string(nameOf(finding.cost)) + "; "
                   + std::string(kindOf(finding).hint);
        }
        return "the document does not hold it";
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
    const FieldPath& field_;
    const BrandView view_;
    std::string above_{};
    Explanation made_{};
};

}  // namespace

Explanation explained(const DocumentMap& document, std::string_view text, std::optional<Brand> brand,
                      const FieldPath& field) {
    return Explaining(document, brand, field).run(text);
}

}  // namespace quorin::document
