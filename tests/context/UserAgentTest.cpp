#include "quorin/context/UserAgent.hpp"

#include "tests/context/Testbed.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using ConfigurationManagerUtils::appName;
using ConfigurationManagerUtils::generateUserAgent;

const Platform sample = phone(":memory:");

TEST(UserAgent, IsMadeOfAppDeviceAndLocale) {
    EXPECT_EQ(generateUserAgent({}, sample),
              "Sample/2.4(iPhone9,1; cpu iOS 10_3_1 like mac os x; en_us) CFNetwork/15.5.0 Darwin/758.4.3");
}

TEST(UserAgent, TakesNetworkAndKernelFromAnExistingOne) {
    EXPECT_EQ(generateUserAgent("Foo/1 CFNetwork/808.3 Darwin/16.3.0", sample),
              "Sample/2.4(iPhone9,1; cpu iOS 10_3_1 like mac os x; en_us) CFNetwork/808.3 Darwin/16.3.0");
}

TEST(UserAgent, MatchesPiecesInAnyLetterCase) {
    EXPECT_TRUE(generateUserAgent("cfNetwork/1", sample).ends_with(") cfNetwork/1 Darwin/758.4.3"));
    EXPECT_TRUE(generateUserAgent("xDARWINx", sample).ends_with(") CFNetwork/15.5.0 xDARWINx"));
}

TEST(UserAgent, TakesTheLastOfSeveralPieces) {
    EXPECT_TRUE(
        generateUserAgent("CFNetwork/1 CFNetwork/2 Darwin/3 Darwin/4", sample).ends_with(") CFNetwork/2 Darwin/4"));
}

TEST(UserAgent, LetsOneComponentBeBothPieces) {
    EXPECT_TRUE(generateUserAgent("DarwinCFNetwork", sample).ends_with(") DarwinCFNetwork DarwinCFNetwork"));
}

TEST(UserAgent, SplitsAtTheBlankOnly) {
    EXPECT_TRUE(generateUserAgent("a\tDarwin/1  b", sample).ends_with(") CFNetwork/15.5.0 a\tDarwin/1"));
    EXPECT_EQ(generateUserAgent("", sample), generateUserAgent({}, sample));
    EXPECT_EQ(generateUserAgent("   ", sample), generateUserAgent({}, sample));
}

TEST(UserAgent, BeginsWithASlashWithoutABundleName) {
    Platform nameless = sample;
    nameless.bundle = {};
    EXPECT_TRUE(generateUserAgent({}, nameless).starts_with("/(iPhone9,1; "));
    EXPECT_EQ(appName(nameless), "");
}

TEST(UserAgent, ChangesTheCaseOfASCIILettersOnly) {
    Platform turkish = sample;
    turkish.locale = [] { return std::string("TR_İ"); };
    EXPECT_NE(generateUserAgent({}, turkish).find("; tr_İ) "), std::string::npos);
}

TEST(AppName, IsTheBundlesName) { EXPECT_EQ(appName(sample), "Sample"); }

}  // namespace
}  // namespace quorin
