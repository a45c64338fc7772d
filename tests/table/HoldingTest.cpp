#include "quorin/model/Configuration.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace quorin {
namespace {

const table::Row& rowOf(const KeyTable& table, std::string_view member) {
    const auto row = std::find_if(table.rows.begin(), table.rows.end(),
                                  [&](const table::Row& one) { return one.holds->member == member; });
    EXPECT_NE(row, table.rows.end()) << member;
    return *row;
}

TEST(Holding, NamesTheMemberAsTheModelSpellsIt) {
    EXPECT_EQ(rowOf(Player::keyTable(), "castRecieverID").key, "castRecieverId");
    EXPECT_EQ(rowOf(AnalyticSuite::keyTable(), "sfCode").key, "sf_code");
    EXPECT_EQ(rowOf(Group::keyTable(), "title_").key, "title");
    EXPECT_EQ(rowOf(Configuration::keyTable(), "brand").key, "brand");
}

TEST(Holding, NamesTheShapeAsReportsDo) {
    EXPECT_EQ(rowOf(Ads::keyTable(), "freeTime").holds->shape, "integer");
    EXPECT_EQ(rowOf(Auth::keyTable(), "preAuthChannels").holds->shape, "list of strings");
}

TEST(Holding, LeadsToTheSectionWhetherItIsOneOrMany) {
    EXPECT_EQ(&rowOf(Player::keyTable(), "ads").holds->section(), &Ads::keyTable());
    EXPECT_EQ(&rowOf(Configuration::keyTable(), "groups").holds->section(), &Group::keyTable());
    EXPECT_EQ(&rowOf(Configuration::keyTable(), "layouts").holds->section(), &ConfigLayout::keyTable());
    EXPECT_EQ(rowOf(Feature::keyTable(), "params").holds->section, nullptr);
}

TEST(Holding, ListsTheTextsOfAnEnumeration) {
    const auto texts = rowOf(WebService::keyTable(), "acceptHeader").holds->texts;
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(texts[0], "application/json");
    EXPECT_TRUE(rowOf(WebService::keyTable(), "name").holds->texts.empty());
}

TEST(KeyTable, TellsTheDefaultsOfItsModel) {
    EXPECT_EQ(*WebService::keyTable().initial().find("Content-Type"), Value("application/x-www-form-urlencoded"));
    EXPECT_EQ(Ads::keyTable().initial().size(), 0U);
}

}  // namespace
}  // namespace quorin
