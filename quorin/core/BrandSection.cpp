#include "quorin/core/BrandSection.hpp"

#include "quorin/model/Configuration.hpp"
#include "quorin/platform/json/Pointer.hpp"

#include <string>
#include <utility>

namespace quorin {
namespace {

constexpr std::string_view services = Configuration::Keys::webServices;

std::string pointerTo(std::string_view outer, std::string_view inner = {}) {
    std::string pointer;
    json::appendStep(pointer, outer);
    if (!inner.empty()) json::appendStep(pointer, inner);
    return pointer;
}

bool leadsInto(std::string_view pointer, std::string_view member) {
    const std::string step = pointerTo(member);
    return pointer.starts_with(step) && (pointer.size() == step.size() || pointer[step.size()] == '/');
}

}  // namespace

BrandSection BrandSection::of(const DocumentMap& document, std::optional<Brand> brand) {
    BrandSection section{.map = document, .document = document};
    if (!brand) return section;
    const auto member = document.find(brand->rawValue());
    auto object = member ? member->asObject() : std::nullopt;
    if (!object) return section;

    section.map = *std::move(object);
    section.name = brand->rawValue();
    if (const auto shared = document.find(services); shared && shared->kind() == json::Kind::object) {
        section.map = section.map.with(services, *shared);
        section.takesServices = true;
    }
    return section;
}

bool BrandSection::isName(std::string_view member) { return Brand::fromRaw(member).rawValue() == member; }

ReadReport BrandSection::reportOfDocument(ReadReport report) const {
    if (name.empty()) return report;
    ReadReport whole;
    whole.omitted = report.omitted;
    for (Finding& finding : report.findings) {
        if (!takesServices || !leadsInto(finding.pointer, services)) finding.pointer.insert(0, pointerTo(name));
        whole.add(std::move(finding));
    }
    const auto unread = [&](std::string pointer, const Value& value, Cost cost) {
        whole.add({std::move(pointer), nothing, nameOf(value.kind()), cost, {}});
    };
    const auto own = document.find(name)->asObject()->find(services);
    if (takesServices && own) unread(pointerTo(name, services), *own, Cost::overridden);
    for (const auto& [member, value] : document) {
        const bool asked = isName(member) || (takesServices && member == services);
        if (!asked) unread(pointerTo(member), value, Cost::notAsked);
    }
    return whole;
}

}  // namespace quorin
