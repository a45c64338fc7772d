#include "quorin/model/Brand.hpp"

#include "Command.hpp"
#include "Table.hpp"

#include <vector>

namespace quorin::tool {
namespace {

struct Named {
    std::optional<std::string> input;
    Brand brand;
};

json::DocumentMap recordOf(const Named& named) {
    const Brand brand = named.brand;
    return {{"input", named.input ? json::Value(*named.input) : json::Value()},
            {"case", brand.name()},
            {"rawValue", brand.rawValue()},
            {"ID", brand.ID()},
            {"analyticsID", brand.analyticsID()},
            {"appName", brand.appName()},
            {"legacyID", brand.legacyID()},
            {"resourceID", brand.resourceID()},
            {"hashValue", brand.hashValue()}};
}

std::vector<Named> namedBy(const std::vector<std::string>& texts) {
    std::vector<Named> all;
    all.reserve(texts.size());
    for (const std::string& text : texts) all.push_back({text, Brand::fromRaw(text)});
    if (!texts.empty()) return all;
    for (std::size_t i = 0; i <= Brand::unknown; ++i) all.push_back({{}, static_cast<Brand::Case>(i)});
    return all;
}

Outcome print(const std::vector<std::string>& texts, bool asJSON, Output& output) {
    const std::vector<Named> all = namedBy(texts);
    std::vector<json::Value> records;
    Table table;
    table.row({texts.empty() ? "" : "INPUT", "CASE", "ID", "ANALYTICS", "APP NAME", "LEGACY", "RESOURCE"});
    for (const Named& named : all) {
        const Brand brand = named.brand;
        records.emplace_back(recordOf(named));
        table.row({named.input.value_or(""), brand.name(), brand.ID(), brand.analyticsID(), brand.appName(),
                   brand.legacyID(), brand.resourceID()});
    }
    if (asJSON)
        output.json(json::List(records));
    else
        output.text(table.text());
    return {};
}

}  // namespace

void addBrand(CLI::App& program, Action& chosen) {
    CLI::App& brand =
        command(program, "brand", "Print the brand that each TEXT names, or all brands", "quorin brand plw 011 --json");
    const auto spellings = std::make_shared<std::vector<std::string>>();
    const auto asJSON = std::make_shared<bool>(false);
    texts(brand, "TEXT", *spellings, "A spelling of a brand").check(text());
    flag(brand, "--json", *asJSON, "Print a JSON list");
    brand.callback([spellings, asJSON, &chosen] {
        chosen = [spellings, asJSON](Session& session) { return print(*spellings, *asJSON, session.output); };
    });
}

}  // namespace quorin::tool
