#include "quorin/context/ConfigurationManagerUtils.hpp"
#include "quorin/context/HeaderKeys.hpp"
#include "quorin/context/Identity.hpp"
#include "quorin/context/PersistenceKeys.hpp"

#include "tests/context/Testbed.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <vector>

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::Pair;
using OptionalText = std::optional<std::string>;

constexpr const char* parentKey = "com.vexodigitalMedia.parent.profileID";
constexpr const char* childKey = "com.vexodigitalMedia.child.profileID";
constexpr const char* tokenKey = "com.vexodigitalMedia.profileJWT";
constexpr const char* accountKey = "com.vexodigitalMedia.kova";
constexpr const char* domainKey = "com.vexodigitalMedia.domain";
constexpr const char* providerKey = "com.vexodigitalMedia.mvpd";

bool isParentIdentifier(const std::string& text) {
    static const std::regex form("p[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    return text.size() == 37 && std::regex_match(text, form);
}

TEST(PersistenceKeys, AreTheStoresKeys) {
    EXPECT_EQ(PersistenceKeys::kova, accountKey);
    EXPECT_EQ(PersistenceKeys::domain, domainKey);
    EXPECT_EQ(PersistenceKeys::vexoMVPD, providerKey);
    EXPECT_EQ(PersistenceKeys::parentProfileID, parentKey);
    EXPECT_EQ(PersistenceKeys::childProfileID, childKey);
    EXPECT_EQ(PersistenceKeys::profileJWT, tokenKey);
}

TEST(Identity, MakesAParentOnAnEmptyStoreWhichIsTheChildToo) {
    const Testbed bed;
    const Platform platform = bed.start();
    const Identity identity(platform);
    EXPECT_TRUE(isParentIdentifier(identity.parentProfileID())) << identity.parentProfileID();
    EXPECT_EQ(bed.stored(parentKey), identity.parentProfileID());
    EXPECT_EQ(identity.childProfileID(), identity.parentProfileID());
    EXPECT_EQ(bed.stored(childKey), identity.parentProfileID());
}

TEST(Identity, HasNoOptionalValueOnAnEmptyStore) {
    const Testbed bed;
    const Platform platform = bed.start();
    const Identity identity(platform);
    EXPECT_EQ(identity.kova(), std::nullopt);
    EXPECT_EQ(identity.profileJWT(), std::nullopt);
    EXPECT_EQ(identity.vexoMVPD(), std::nullopt);
    EXPECT_EQ(identity.configDomain(), std::nullopt);
}

TEST(Identity, TakesTheStoredParentForAMissingChild) {
    const Testbed bed;
    bed.put(parentKey, "p1");
    const Platform platform = bed.start();
    EXPECT_EQ(Identity(platform).childProfileID(), "p1");
}

TEST(Identity, ReadsAStoredValueThatIsNoTextAsAbsent) {
    const Testbed bed;
    bed.put(accountKey, std::int64_t{7});
    bed.put(parentKey, 2.5);
    const Platform platform = bed.start();
    const Identity identity(platform);
    EXPECT_EQ(identity.kova(), std::nullopt);
    EXPECT_TRUE(isParentIdentifier(identity.parentProfileID()));
}

TEST(Identity, RestoresEveryPersistedValue) {
    const Testbed bed;
    {
        const Platform platform = bed.start();
        Identity identity(platform);
        identity.setKova("account");
        identity.setProfileJWT("token");
        identity.setVEXOMVPD("provider");
        identity.setConfigDomain("example.com");
        identity.setParentProfileID("p-parent");
        identity.setChildProfileID("p-child");
    }
    const Platform platform = bed.start();
    const Identity identity(platform);
    EXPECT_EQ(identity.kova(), "account");
    EXPECT_EQ(identity.profileJWT(), "token");
    EXPECT_EQ(identity.vexoMVPD(), "provider");
    EXPECT_EQ(identity.configDomain(), "example.com");
    EXPECT_EQ(identity.parentProfileID(), "p-parent");
    EXPECT_EQ(identity.childProfileID(), "p-child");
}

TEST(Identity, KeepsAnEmptyTextAsAValue) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    identity.setKova("");
    EXPECT_EQ(identity.kova(), "");
    EXPECT_EQ(bed.stored(accountKey), "");
}

TEST(Identity, StoresAValueBeforeTheAssignmentReturns) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    identity.setProfileJWT("token");
    EXPECT_EQ(bed.stored(tokenKey), "token");
    identity.setVEXOMVPD("provider");
    EXPECT_EQ(bed.stored(providerKey), "provider");
    identity.setConfigDomain("d");
    EXPECT_EQ(bed.stored(domainKey), "d");
}

TEST(Identity, RemovesAnAbsentValueFromTheStore) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    identity.setProfileJWT("token");
    identity.setProfileJWT(std::nullopt);
    EXPECT_EQ(bed.stored(tokenKey), std::nullopt);
    identity.setKova("account");
    identity.setKova(std::nullopt);
    EXPECT_EQ(bed.stored(accountKey), std::nullopt);
}

TEST(Identity, WritesTheStoreOnceForTwoEqualAssignments) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    identity.setProfileJWT("token");
    bed.put(tokenKey, "changed behind its back");
    identity.setProfileJWT("token");
    EXPECT_EQ(bed.stored(tokenKey), "changed behind its back");
}

TEST(Identity, StoresAnAccountWithoutADomain) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    identity.setKova("account");
    EXPECT_EQ(bed.stored(accountKey), "account");
    EXPECT_EQ(identity.configDomain(), std::nullopt);
}

TEST(Identity, LeavesTheFileAsItIsWhenItStartsAgain) {
    const Testbed bed;
    {
        const Platform first = bed.start();
        Identity identity(first);
    }
    const std::string before = support::contentOf(bed.storePath());
    {
        const Platform second = bed.start();
        Identity identity(second);
    }
    EXPECT_EQ(support::contentOf(bed.storePath()), before);
}

TEST(Identity, KeepsWhatIsGeneratedFromAnAssignedUserAgent) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    identity.setUserAgent("x Darwin/9");
    EXPECT_EQ(identity.userAgent(), ConfigurationManagerUtils::generateUserAgent("x Darwin/9", platform));
    EXPECT_TRUE(identity.userAgent().ends_with(" Darwin/9"));
}

TEST(Identity, DoesNotKeepTheUserAgentBetweenStarts) {
    const Testbed bed;
    const Platform first = bed.start();
    Identity(first).setUserAgent("Darwin/9");
    const Platform second = bed.start();
    EXPECT_TRUE(Identity(second).userAgent().ends_with(" Darwin/758.4.3"));
}

TEST(IdentityObserver, YieldsNothingUntilTheNextAssignment) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    std::vector<OptionalText> seen;
    identity.kovaObserver().subscribe({.next = [&](const OptionalText& value) { seen.push_back(value); }});
    EXPECT_TRUE(seen.empty());
    identity.setKova("a");
    identity.setKova("a");
    identity.setKova(std::nullopt);
    EXPECT_THAT(seen, ElementsAre("a", "a", std::nullopt));
}

TEST(IdentityObserver, IsToldAfterTheStore) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    OptionalText storedThen;
    identity.profileJWTObserver().subscribe({.next = [&](const OptionalText&) { storedThen = bed.stored(tokenKey); }});
    identity.setProfileJWT("token");
    EXPECT_EQ(storedThen, "token");
}

TEST(IdentityObserver, FollowsBothProfiles) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    std::vector<std::string> seen;
    const auto note = [&](const std::string& value) { seen.push_back(value); };
    identity.parentProfileIDObserver().subscribe({.next = note});
    identity.childProfileIDObserver().subscribe({.next = note});
    identity.setParentProfileID("p1");
    identity.setChildProfileID("c1");
    EXPECT_THAT(seen, ElementsAre("p1", "c1"));
}

TEST(IdentityObserver, SeesAHandlersOwnAssignmentAfterTheOneItHandles) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    std::vector<std::string> seen;
    identity.childProfileIDObserver().subscribe({.next = [&](const std::string& value) {
        if (value == "first") identity.setChildProfileID("second");
    }});
    identity.childProfileIDObserver().subscribe({.next = [&](const std::string& value) { seen.push_back(value); }});
    identity.setChildProfileID("first");
    EXPECT_THAT(seen, ElementsAre("first", "second"));
    EXPECT_EQ(bed.stored(childKey), "second");
}

TEST(ProfileBind, IsAbsentWithoutAToken) {
    const Testbed bed;
    const Platform platform = bed.start();
    EXPECT_EQ(Identity(platform).profileBind(true), std::nullopt);
}

TEST(ProfileBind, BindsTheParentOrTheChild) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    identity.setProfileJWT("t");
    EXPECT_EQ(identity.profileBind(true), identity.profileBind(false));
    identity.setChildProfileID("c");
    EXPECT_EQ(identity.profileBind(true), (AnonymousBind{.profileID = identity.parentProfileID(), .profileJWT = "t"}));
    EXPECT_EQ(identity.profileBind(false), (AnonymousBind{.profileID = "c", .profileJWT = "t"}));
}

TEST(ParentProfileID, IsGeneratedInTheStoreAndNewEachTime) {
    const Testbed bed;
    const Platform platform = bed.start();
    const std::string first = ConfigurationManagerUtils::generateParentProfileID(platform);
    const std::string second = ConfigurationManagerUtils::generateParentProfileID(platform);
    EXPECT_TRUE(isParentIdentifier(first));
    EXPECT_NE(first, second);
    EXPECT_EQ(bed.stored(parentKey), second);
}

TEST(ParentProfileID, IsReplacedWithoutTheChild) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    const std::string before = identity.parentProfileID();
    identity.generateNewParentProfileID();
    EXPECT_NE(identity.parentProfileID(), before);
    EXPECT_EQ(identity.childProfileID(), before);
    EXPECT_EQ(bed.stored(parentKey), identity.parentProfileID());
}

TEST(Retrieve, ReadsEachValueByItsKey) {
    const Testbed bed;
    bed.put(accountKey, "a");
    bed.put(domainKey, "d");
    bed.put(providerKey, "m");
    bed.put(tokenKey, std::int64_t{1});
    const Platform platform = bed.start();
    EXPECT_EQ(ConfigurationManagerUtils::retrieveKOVA(platform), "a");
    EXPECT_EQ(ConfigurationManagerUtils::retrieveDomain(platform), "d");
    EXPECT_EQ(ConfigurationManagerUtils::retrieveVEXOMVPD(platform), "m");
    EXPECT_EQ(ConfigurationManagerUtils::retrieveProfileJWT(platform), std::nullopt);
}

TEST(Retrieve, MakesAParentForWhoeverAsksFirst) {
    const Testbed bed;
    const Platform platform = bed.start();
    const std::string child = ConfigurationManagerUtils::retrieveChildProfileID(platform);
    EXPECT_TRUE(isParentIdentifier(child));
    EXPECT_EQ(ConfigurationManagerUtils::retrieveParentProfileID(platform), child);
    EXPECT_EQ(bed.stored(parentKey), child);
    EXPECT_EQ(bed.stored(childKey), std::nullopt);
}

TEST(IdentityHeaders, LeaveAbsentValuesOut) {
    const Testbed bed;
    const Platform platform = bed.start();
    Identity identity(platform);
    EXPECT_THAT(identity.headers(), ElementsAre(Pair("User-Agent", identity.userAgent())));
    identity.setKova("a");
    identity.setVEXOMVPD("m");
    EXPECT_THAT(identity.headers(),
                ElementsAre(Pair("KOVA", "a"), Pair("User-Agent", identity.userAgent()), Pair("VEXO-MVPD", "m")));
}

TEST(HeaderKeys, AreTheHeadersNames) {
    EXPECT_EQ(HeaderKeys::userAgent, "User-Agent");
    EXPECT_EQ(HeaderKeys::appversion, "appversion");
    EXPECT_EQ(HeaderKeys::userZ, "VEXO-USERTZ");
    EXPECT_EQ(HeaderKeys::vexoMVPD, "VEXO-MVPD");
    EXPECT_EQ(HeaderKeys::kova, "KOVA");
}

}  // namespace
}  // namespace quorin
