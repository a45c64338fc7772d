#include "quorin/facade/KVTBrand.hpp"

#include "quorin/facade/IntegerTable.hpp"

namespace quorin {
namespace {

constexpr integers::Table<Brand, 6> table{Brand::orvel,   Brand::caldor, Brand::pellow,
                                          Brand::quintar, Brand::tavish, Brand::unknown};

}  // namespace

KVTBrand::KVTBrand(std::optional<Brand> brand) : case_(static_cast<Case>(integers::integerOf(table, brand))) {}

std::optional<KVTBrand> KVTBrand::fromRawValue(std::int64_t rawValue) {
    if (!integers::has(table, rawValue)) return std::nullopt;
    return KVTBrand(static_cast<Case>(rawValue));
}

std::optional<Brand> KVTBrand::brand() const { return integers::at(table, case_); }

}  // namespace quorin
