#include "quorin/model/Configuration.hpp"
#include "quorin/table/Archivable.hpp"

#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace quorin {
namespace {

template <class... Models>
constexpr bool allConform = ((Serializable<Models> && Archivable<Models>) && ...);

static_assert(allConform<Configuration, Initialize, AppVersion, ApplicationData, Common, Auth, Profile, Group, Feature,
                         Player, Ads, ContinuousPlayback, Timing, Duration, AnalyticSuite, ConfigLayout, WebService>);
static_assert(!Serializable<int> && !Archivable<DocumentMap>);

TEST(Serialized, IsAbsentForEveryModel) {
    EXPECT_FALSE(serialized(Configuration{}));
    EXPECT_FALSE(serialized(Group{"a", "A"}));
    EXPECT_FALSE(serialized(WebService{.name = "a", .url = "u"}));
    EXPECT_FALSE(serialized(Ads{.freeTime = 1}));
}

TEST(ToEncodedArray, IsPresentAndEmptyForAnEmptyList) {
    const auto encoded = toEncodedArray(std::vector<Group>{});
    ASSERT_TRUE(encoded);
    EXPECT_TRUE(encoded->empty());
}

TEST(ToEncodedArray, KeepsTheOrder) {
    const auto encoded = toEncodedArray(std::vector<Group>{{"b", "B"}, {"a", "A"}, {"b", "B"}});
    ASSERT_EQ(encoded->size(), 3u);
    EXPECT_EQ(json::print(encoded->at(0)), R"({"id":"b","title":"B"})");
    EXPECT_EQ(json::print(encoded->at(1)), R"({"id":"a","title":"A"})");
    EXPECT_EQ(json::print(encoded->at(2)), R"({"id":"b","title":"B"})");
}

TEST(ToEncodedArray, EncodesElementsWithoutFields) {
    EXPECT_EQ(json::print(toEncodedArray(std::vector<Timing>{{}})->at(0)), "{}");
}

}  // namespace
}  // namespace quorin
