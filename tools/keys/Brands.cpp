#include "Brands.hpp"

#include "quorin/model/Brand.hpp"

#include "Markdown.hpp"

#include <string_view>
#include <vector>

namespace quorin::keys {
namespace {

std::vector<std::string_view> spellingsOf(Brand brand) {
    std::vector<std::string_view> texts;
    for (const std::string_view text : Brand::spellings()) {
        if (Brand::fromRaw(text) == brand) texts.push_back(text);
    }
    return texts;
}

}  // namespace

std::string brands() {
    std::string text = markdown::columns({"Brand", "Member with its section", "Accepted as"});
    for (auto code = std::size_t{0}; code < Brand::unknown; ++code) {
        const Brand brand = static_cast<Brand::Case>(code);
        text += markdown::row(
            {std::string(brand.name()), markdown::code(brand.ID()), markdown::listed(spellingsOf(brand))});
    }
    return text;
}

}  // namespace quorin::keys
