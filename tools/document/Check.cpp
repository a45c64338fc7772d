#include "Check.hpp"

#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/json/Pointer.hpp"
#include "quorin/platform/json/Repeated.hpp"
#include "quorin/services/ContentType.hpp"

#include "BrandViews.hpp"
#include "Endpoints.hpp"
#include "FieldPath.hpp"
#include "Kinds.hpp"
#include "Nearest.hpp"
#include "ValueAt.hpp"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace quorin::document {
namespace {

constexpr std::string_view services = Configuration::Keys::webServices;

/// The brand whose section the author of `name` may have meant.
std::optional<Brand> brandMeant(std::string_view name) {
    const auto spellings = Brand::spellings();
    const auto same = [&](std::string_view spelling) { return rawvalues::sameFolded(spelling, name); };
    const auto spelt = std::find_if(spellings.begin(), spellings.end(), same);
    if (spelt != spellings.end()) return Brand::fromRaw(*spelt);
    constexpr std::size_t shortest = 5;  // of names that are told from others by one or two letters
    const auto meant = name.size() < shortest ? std::vector<std::string_view>() : near(name, spellings);
    return meant.empty() ? std::nullopt : std::optional(Brand::fromRaw(meant.front()));
}

/// What two of them never have alike, by their places in the text.
auto orderOf(const Diagnosis& one) {
    const json::Position place = one.position.value_or(json::Position{});
    return std::tuple(place.line, place.column, std::string_view(one.pointer), one.kind.code);
}

class Check {
public:
    Check(const DocumentMap& document, std::string_view text, std::span<const Brand> brands)
        : document_(document), text_(text) {
        for (const auto& group : alike(std::span(&document, 1), brands)) views_.push_back(viewOf(document, group));
        const auto all = alike(std::span(&document, 1), allBrands());
        isReadWhole_ = readsWhole(viewOf(document, all.back()));
    }

    Checked run() && {
        for (const BrandView& view : views_) addRead(view);
        addRepeated();
        addLostSections();
        Checked checked;
        for (auto& [key, diagnosis] : found_) checked.diagnoses.push_back(std::move(diagnosis));
        if (omitted_ > 0) checked.diagnoses.push_back(more());
        locate(checked.diagnoses);
        std::sort(checked.diagnoses.begin(), checked.diagnoses.end(),
                  [](const auto& left, const auto& right) { return orderOf(left) < orderOf(right); });
        return checked;
    }

private:
    void add(const Diagnosis& diagnosis, const std::vector<Brand>& brands) {
        const auto key = std::pair(diagnosis.pointer, diagnosis.kind.code);
        auto& known = found_.try_emplace(key, diagnosis).first->second.brands;
        for (const Brand brand : brands) {
            if (std::find(known.begin(), known.end(), brand) == known.end()) known.push_back(brand);
        }
    }

    void addRead(const BrandView& view) {
        ReadReport report;
        const Configuration configuration = view.configuration(&report);
        report = view.section.reportOfDocument(std::move(report));
        omitted_ = std::max(omitted_, report.omitted);
        for (const Finding& finding : report.findings) {
            if (!isReadByOthers(view, finding)) add(refined(view, finding), view.brands);
        }
        if (configuration.webServices) addEndpoints(view, *configuration.webServices);
    }

    static bool readsWhole(const BrandView& view) { return view.section.name.empty(); }

    /// A member of the root that these apps do not ask for may be a brand's, or
    /// one of apps that read the whole document.
    bool isReadByOthers(const BrandView& view, const Finding& finding) const {
        const auto steps = json::stepsOf(finding.pointer);
        if (finding.cost != Cost::notAsked || steps.size() != 1) return false;
        if (readsWhole(view)) return BrandSection::isName(steps.front());
        return isReadWhole_;
    }

    Diagnosis refined(const BrandView& view, const Finding& finding) {
        Diagnosis diagnosis{.kind = kindOf(finding),
                            .pointer = finding.pointer,
                            .expected = finding.expected,
                            .found = finding.found,
                            .cost = std::string(nameOf(finding.cost))};
        if (finding.cost == Cost::notAsked) tellWhatWasMeant(view, diagnosis);
        const bool isOtherType = finding.expected == ContentType::shape && finding.found == otherText;
        if (isOtherType && finding.cost == Cost::defaultUsed) diagnosis.kind = kind::noBody;
        if (finding.found == nothing && isLost(finding.cost)) addMisspelt(view, finding);
        return diagnosis;
    }

    static bool isLost(Cost cost) { return cost == Cost::elementDropped || cost == Cost::entryDropped; }

    /// Beside a required value that is missing, the member that was meant to be it.
    void addMisspelt(const BrandView& view, const Finding& missing) {
        std::vector<std::string> steps = json::stepsOf(missing.pointer);
        const std::string name = steps.back();
        steps.pop_back();
        const auto around = valueAt(document_, steps);
        const auto members = around ? around->asObject() : std::nullopt;
        if (!members) return;
        const std::string above = missing.pointer.substr(0, missing.pointer.rfind('/'));
        for (const auto& [member, value] : *members) {
            Diagnosis diagnosis{.kind = kind::misspeltMember,
                                .pointer = above,
                                .expected = nothing,
                                .found = nameOf(value.kind()),
                                .cost = std::string(nameOf(Cost::notAsked))};
            json::appendStep(diagnosis.pointer, member);
            tellWhatWasMeant(view, diagnosis);
            if (diagnosis.meant == "\"" + name + "\"") add(diagnosis, view.brands);
        }
    }

    /// What stands under a brand's name and is no section: the brand reads the whole document.
    void addLostSections() {
        for (const auto& [name, value] : document_) {
            if (!BrandSection::isName(name) || value.kind() == json::Kind::object) continue;
            std::string pointer;
            json::appendStep(pointer, name);
            add({.kind = kind::noSection,
                 .pointer = std::move(pointer),
                 .expected = "object",
                 .found = nameOf(value.kind()),
                 .cost = "the brand reads the whole document"},
                {Brand::fromRaw(name)});
        }
    }

    Diagnosis more() const {
        return {.kind = kind::moreFindings,
                .expected = "fewer findings",
                .found = "more than a report holds",
                .cost = "at least " + std::to_string(omitted_) + " are not told"};
    }

    void tellWhatWasMeant(const BrandView& view, Diagnosis& diagnosis) const {
        std::vector<std::string> steps = json::stepsOf(diagnosis.pointer);
        const std::string name = steps.back();
        const auto brand = steps.size() == 1 && diagnosis.found == "object" ? brandMeant(name) : std::nullopt;
        if (brand) return tell(diagnosis, kind::noBrand, brand->rawValue());
        if (steps.size() > 1 && steps.front() == view.section.name) steps.erase(steps.begin());
        std::vector<std::string_view> known;
        if (fieldAt(steps, true, known)) return;
        const auto meant = near(name, known);
        if (!meant.empty()) tell(diagnosis, kind::misspeltMember, meant.front());
    }

    static void tell(Diagnosis& diagnosis, const FindingKind& kind, std::string_view meant) {
        diagnosis.kind = kind;
        diagnosis.meant = "\"" + std::string(meant) + "\"";
    }

    void addEndpoints(const BrandView& view, const MapOf<WebService>& endpoints) {
        std::string above;
        if (!readsWhole(view) && !view.section.takesServices) json::appendStep(above, view.section.name);
        json::appendStep(above, services);
        for (const auto& [name, endpoint] : endpoints) {
            const URLFault fault = faultOf(endpoint.url);
            if (!fault.kind) continue;
            std::string pointer = above;
            json::appendStep(pointer, name);
            json::appendStep(pointer, WebService::Keys::url);
            json::appendStep(pointer, WebService::Keys::value);
            add({.kind = *fault.kind,
                 .pointer = std::move(pointer),
                 .expected = fault.expected,
                 .found = fault.found,
                 .cost = std::string(fault.cost)},
                view.brands);
        }
    }

    void addRepeated() {
        auto repeated = json::repeatedMembers(text_);
        omitted_ = std::max(omitted_, repeated.omitted);
        for (std::string& pointer : repeated.pointers)
            add({.kind = kind::repeatedMember,
                 .pointer = std::move(pointer),
                 .expected = "one member of this name",
                 .found = "several",
                 .cost = "all but the last are lost"},
                {});
    }

    void locate(std::vector<Diagnosis>& diagnoses) const {
        std::vector<std::string> pointers;
        for (const Diagnosis& diagnosis : diagnoses) {
            pointers.push_back(diagnosis.pointer);
            pointers.push_back(diagnosis.pointer.substr(0, diagnosis.pointer.rfind('/')));
        }
        const auto positions = json::positionsOf(text_, pointers);
        for (std::size_t i = 0; i < diagnoses.size(); ++i)
            diagnoses[i].position = positions[2 * i] ? positions[2 * i] : positions[2 * i + 1];
    }

    const DocumentMap& document_;
    std::string_view text_;
    std::vector<BrandView> views_;
    bool isReadWhole_ = false;  ///< by apps of any brand, asked for or not
    std::map<std::pair<std::string, std::string_view>, Diagnosis> found_;
    std::size_t omitted_ = 0;
};

}  // namespace

Checked check(const DocumentMap& document, std::string_view text, std::span<const Brand> brands) {
    return Check(document, text, brands).run();
}

}  // namespace quorin::document
