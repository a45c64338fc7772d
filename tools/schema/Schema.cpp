#include "tools/schema/Schema.hpp"

#include "quorin/model/Brand.hpp"
#include "quorin/model/Configuration.hpp"

#include "tools/schema/Reference.hpp"
#include "tools/schema/Sections.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace quorin::schema {
namespace {

using json::DocumentMap;

constexpr std::string_view draft = "https://json-schema.org/draft/2020-12/schema";
constexpr std::string_view services = Configuration::Keys::webServices;
constexpr std::string_view withoutServices = "ConfigurationWithoutServices";

DocumentMap root(std::string_view title, std::string_view description, const KeyTable& table,
                 const Definitions& definitions) {
    const std::vector<DocumentMap::Member> defined(definitions.begin(), definitions.end());
    return {{"$schema", draft},
            {"title", title},
            {"description", description},
            {"allOf", json::List{referenceTo(table.name)}},  // beside "$ref" older tools read nothing
            {"$defs", DocumentMap(defined)}};
}

/// `schema` for the section of each brand. A member of that name that is no object is not taken for a section.
DocumentMap forBrands(const DocumentMap& schema) {
    std::vector<DocumentMap::Member> sections;
    for (auto code = std::size_t{0}; code <= Brand::unknown; ++code) {
        const Brand brand = static_cast<Brand::Case>(code);
        const std::string words = "The section of the brand " + std::string(brand.name()) + ".";
        sections.emplace_back(brand.rawValue(), schema.with("description", words));
    }
    return DocumentMap{{"properties", DocumentMap(sections)}};
}

DocumentMap whereObject(const DocumentMap& schema) {
    return {{"if", DocumentMap{{"type", "object"}}}, {"then", schema}};
}

/// A brand's section in a document that has web services at its root: its own are not read.
DocumentMap sectionBesideServices(const DocumentMap& section) {
    const DocumentMap notRead{{"description", "Not read: the document has web services at its root."},
                              {"deprecated", true}};
    const DocumentMap properties = *section.find("properties")->asObject();
    return section.with("properties", properties.with(services, notRead));
}

}  // namespace

DocumentMap ofSection(const KeyTable& table) {
    Definitions definitions;
    define(table, definitions);
    return insteadOfName(table).addedTo(root(table.name, sentenceOn(table), table, definitions));
}

DocumentMap ofDocument() {
    const KeyTable& table = Configuration::keyTable();
    Definitions definitions;
    define(table, definitions);
    definitions.emplace(withoutServices, sectionBesideServices(*definitions.find(table.name)->second.asObject()));
    return root("Configuration document",
                "The configuration of each brand under the brand's name, and the web services that all brands share; "
                "or one configuration by itself.",
                table, definitions)
        .with("if", DocumentMap{{"required", json::List{services}}})
        .with("then", forBrands(whereObject(referenceTo(withoutServices))))
        .with("else", forBrands(whereObject(referenceTo(table.name))));
}

}  // namespace quorin::schema
