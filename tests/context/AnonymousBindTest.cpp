#include "quorin/context/AnonymousBind.hpp"
#include "quorin/table/Archivable.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

static_assert(Serializable<AnonymousBind> && Archivable<AnonymousBind>);

const AnonymousBind bound{.profileID = "p1", .profileJWT = "t"};

TEST(AnonymousBind, ReadsAndWritesTheSameTwoKeys) {
    const DocumentMap map{{"profileId", "p1"}, {"jwt", "t"}};
    EXPECT_EQ(AnonymousBind::fromJSON(map), bound);
    EXPECT_EQ(AnonymousBind::fromEncoded(map), bound);
    EXPECT_EQ(bound.encode(), map);
    EXPECT_EQ(AnonymousBind::Keys::profileID, "profileId");
    EXPECT_EQ(AnonymousBind::Keys::profileJWT, "jwt");
}

TEST(AnonymousBind, NeedsBothToBeStrings) {
    EXPECT_EQ(AnonymousBind::fromJSON({{"profileId", "p1"}}), std::nullopt);
    EXPECT_EQ(AnonymousBind::fromJSON({{"jwt", "t"}}), std::nullopt);
    EXPECT_EQ(AnonymousBind::fromJSON({{"profileId", 1}, {"jwt", "t"}}), std::nullopt);
    EXPECT_EQ(AnonymousBind::fromEncoded({{"profileId", "p1"}, {"jwt", nullptr}}), std::nullopt);
}

TEST(AnonymousBind, ExistsWithAnEmptyTokenAndIsNotValidThen) {
    const auto bind = AnonymousBind::fromJSON({{"profileId", "p1"}, {"jwt", ""}});
    ASSERT_TRUE(bind);
    EXPECT_FALSE(bind->isValid());
    EXPECT_FALSE((AnonymousBind{.profileID = "", .profileJWT = "t"}).isValid());
    EXPECT_TRUE(bound.isValid());
}

TEST(AnonymousBind, IsEqualWhenBothFieldsAre) {
    EXPECT_NE(bound, (AnonymousBind{.profileID = "p2", .profileJWT = "t"}));
    EXPECT_NE(bound, (AnonymousBind{.profileID = "p1", .profileJWT = "u"}));
}

}  // namespace
}  // namespace quorin
