#include "quorin/model/Brand.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {
namespace {

struct Codes {
    Brand brand;
    std::string_view name, rawValue, analyticsID, appName, legacyID, resourceID;
    std::vector<std::string_view> accepted;
};

const std::vector<Codes> table{
    {Brand::orvel, "orvel", "orvel", "orvel", "orvel", "001", "Orvel", {"orvel", "001"}},
    {Brand::brisan, "brisan", "bris", "bris", "bris", "002", "Brisan", {"bris", "002", "brisan"}},
    {Brand::caldor, "caldor", "003", "003", "003", "003", "Orvel", {"003"}},
    {Brand::pellow, "pellow", "pel", "plw", "pel", "004", "Pellow", {"pel", "pl", "plw", "004", "pellow"}},
    {Brand::quintar, "quintar", "qnt", "qnt", "qnt", "008", "Quintar", {"qnt", "008", "quintar"}},
    {Brand::tavish, "tavish", "tvs", "tvs", "tvs", "009", "Tavish", {"tvs", "009", "tavish"}},
    {Brand::vossen, "vossen", "voss", "vsn", "Voss", "011", "Vossen", {"voss", "011", "vossen", "vsn"}},
    {Brand::wexley, "wexley", "wexley", "wexley", "wexley", "005", "Orvel", {"005", "wexley"}},
    {Brand::unknown, "unknown", "unknown", "unknown", "unknown", "000", "000", {}},
};

TEST(Brand, BearsTheCodesOfTheTable) {
    for (const Codes& row : table) {
        EXPECT_EQ(row.brand.name(), row.name);
        EXPECT_EQ(row.brand.rawValue(), row.rawValue);
        EXPECT_EQ(row.brand.ID(), row.rawValue);
        EXPECT_EQ(row.brand.analyticsID(), row.analyticsID);
        EXPECT_EQ(row.brand.appName(), row.appName);
        EXPECT_EQ(row.brand.legacyID(), row.legacyID);
        EXPECT_EQ(row.brand.resourceID(), row.resourceID);
    }
}

TEST(Brand, HashesToItsPosition) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i].brand.hashValue(), i);
        EXPECT_EQ(std::hash<Brand>()(table[i].brand), i);
    }
}

TEST(Brand, IsMadeFromEachAcceptedText) {
    for (const Codes& row : table) {
        for (const std::string_view text : row.accepted) {
            EXPECT_EQ(Brand::fromRawValue(text), row.brand) << text;
            EXPECT_EQ(Brand::fromRaw(text), row.brand) << text;
        }
    }
}

TEST(Brand, IsMadeFromItsRawValueAndItsLegacyCode) {
    for (const Codes& row : table) {
        EXPECT_EQ(Brand::fromRawValue(row.brand.rawValue()), row.brand);
        EXPECT_EQ(Brand::fromRawValue(row.brand.legacyID()), row.brand);
    }
}

TEST(Brand, IsUnknownForAnyOtherText) {
    for (const std::string_view text : {"unknown", "000", "", "Orvel", "ORVEL", "Voss", "Pellow", "BRIS", "caldor",
                                        "vs", "006", "007", "010", "1", " orvel", "orvel ", "xyz", "pell"}) {
        EXPECT_EQ(Brand::fromRawValue(text), Brand::unknown) << text;
        EXPECT_EQ(Brand::fromRaw(text), Brand::unknown) << text;
    }
    EXPECT_EQ(Brand::fromRaw(std::string_view("orvel\0", 6)), Brand::unknown);
}

TEST(Brand, ListsEachAcceptedTextOnce) {
    std::vector<std::string_view> expected;
    for (const Codes& row : table) expected.insert(expected.end(), row.accepted.begin(), row.accepted.end());
    std::vector<std::string_view> spellings = Brand::spellings();
    std::sort(expected.begin(), expected.end());
    std::sort(spellings.begin(), spellings.end());
    EXPECT_EQ(spellings, expected);
}

TEST(Brand, EqualsItsOwnCaseOnly) {
    for (const Codes& left : table) {
        for (const Codes& right : table) EXPECT_EQ(left.brand == right.brand, &left == &right);
    }
}

TEST(Brand, MayStandInASwitch) {
    const Brand brand = Brand::pellow;
    switch (brand) {
        case Brand::pellow: SUCCEED(); break;
        default: FAIL();
    }
}

}  // namespace
}  // namespace quorin
