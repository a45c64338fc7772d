#include "BrandViews.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

bool hasSection(const DocumentMap& document, Brand brand) { return !BrandSection::of(document, brand).name.empty(); }

DocumentMap withoutSections(const DocumentMap& document) {
    std::vector<DocumentMap::Member> members;
    for (const auto& [name, value] : document) {
        const bool isSection = value.kind() == json::Kind::object && BrandSection::isName(name);
        if (!isSection) members.emplace_back(name, value);
    }
    return DocumentMap(members);
}

}  // namespace

Configuration BrandView::configuration(ReadReport* report) const {
    return Configuration::fromJSON(section.map, report).value_or(Configuration());
}

DocumentMap BrandView::source() const {
    return section.name.empty() ? withoutSections(section.document) : *section.document.find(section.name)->asObject();
}

std::vector<Brand> allBrands() {
    std::vector<Brand> brands;
    for (std::size_t code = 0; code <= Brand::unknown; ++code) brands.emplace_back(static_cast<Brand::Case>(code));
    return brands;
}

std::vector<std::vector<Brand>> alike(std::span<const DocumentMap> documents, std::span<const Brand> brands) {
    std::vector<std::vector<Brand>> groups;
    std::vector<Brand> others;
    for (const Brand brand : brands) {
        const bool isOwn = std::any_of(documents.begin(), documents.end(),
                                       [&](const DocumentMap& document) { return hasSection(document, brand); });
        isOwn ? groups.push_back({brand}) : others.push_back(brand);
    }
    if (!others.empty()) groups.push_back(others);
    return groups;
}

BrandView viewOf(const DocumentMap& document, const std::vector<Brand>& brands) {
    return {.brands = brands, .section = BrandSection::of(document, brands.front())};
}

std::string namesOf(std::span<const Brand> brands) {
    std::string text;
    for (const Brand brand : brands) text += (text.empty() ? "" : ", ") + std::string(brand.name());
    return text;
}

json::List listOf(std::span<const Brand> brands) {
    std::vector<json::Value> names;
    names.reserve(brands.size());
    for (const Brand brand : brands) names.emplace_back(brand.name());
    return json::List(names);
}

}  // namespace quorin::document
