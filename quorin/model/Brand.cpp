#include "quorin/model/Brand.hpp"

#include <algorithm>
#include <array>

namespace quorin {
namespace {

struct Codes {
    std::string_view name;
    std::string_view rawValue;
    std::string_view analyticsID;
    std::string_view appName;
    std::string_view legacyID;
    std::string_view resourceID;
    std::array<std::string_view, 2> aliases;  ///< accepted beside the raw value, the analytics and the legacy code
};

// One row for each case, in their order. The irregular cells are intended.
constexpr std::array<Codes, 9> brands{{
    {"orvel", "orvel", "orvel", "orvel", "001", "Orvel", {}},
    {"brisan", "bris", "bris", "bris", "002", "Brisan", {"brisan"}},
    {"caldor", "003", "003", "003", "003", "Orvel", {}},
    {"pellow", "pel", "plw", "pel", "004", "Pellow", {"pl", "pellow"}},
    {"quintar", "qnt", "qnt", "qnt", "008", "Quintar", {"quintar"}},
    {"tavish", "tvs", "tvs", "tvs", "009", "Tavish", {"tavish"}},
    {"vossen", "voss", "vsn", "Voss", "011", "Vossen", {"vossen"}},
    {"wexley", "wexley", "wexley", "wexley", "005", "Orvel", {}},
    {"unknown", "unknown", "unknown", "unknown", "000", "000", {}},
}};

static_assert(brands.size() == Brand::unknown + 1, "every case needs its codes");

bool accepts(const Codes& codes, std::string_view text) {
    return text == codes.rawValue || text == codes.analyticsID || text == codes.legacyID
           || (!text.empty() && std::find(codes.aliases.begin(), codes.aliases.end(), text) != codes.aliases.end());
}

}  // namespace

std::optional<Brand> Brand::fromRawValue(std::string_view text) {
    const auto row =
        std::find_if(brands.begin(), brands.end(), [&](const Codes& codes) { return accepts(codes, text); });
    return row == brands.end() ? unknown : static_cast<Case>(row - brands.begin());
}

Brand Brand::fromRaw(std::string_view text) { return fromRawValue(text).value_or(unknown); }

std::vector<std::string_view> Brand::spellings() {
    std::vector<std::string_view> texts;
    for (const Codes& codes : brands) {
        if (&codes == &brands[unknown]) continue;
        for (const std::string_view text :
             {codes.rawValue, codes.analyticsID, codes.legacyID, codes.aliases[0], codes.aliases[1]}) {
            if (!text.empty() && std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
        }
    }
    return texts;
}

std::string_view Brand::name() const { return brands[case_].name; }
std::string_view Brand::rawValue() const { return brands[case_].rawValue; }
std::string_view Brand::analyticsID() const { return brands[case_].analyticsID; }
std::string_view Brand::appName() const { return brands[case_].appName; }
std::string_view Brand::legacyID() const { return brands[case_].legacyID; }
std::string_view Brand::resourceID() const { return brands[case_].resourceID; }

}  // namespace quorin
