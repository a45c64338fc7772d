#include "quorin/context/PersistenceKeys.hpp"
#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorin {
namespace {

using Manager = ConfigurationManager::Instance;
using foundation::HTTPCookie;
using testing::ElementsAre;

HTTPCookie account(const std::string& value, const std::string& domain = "example.com") {
    return {.name = "KOVA", .value = value, .domain = domain};
}

std::string sentTo(const Manager& manager, const std::string& url = "https://example.com/") {
    return manager.platform().transport.cookies->cookieHeader(url);
}

TEST(Cookie, IsInstalledByConstruction) {
    const Testbed testbed;
    testbed.put(PersistenceKeys::kova, "abc");
    testbed.put(PersistenceKeys::domain, "https://api.example.com/v1/config");
    const Manager manager(testbed.start());
    EXPECT_EQ(sentTo(manager, "https://api.example.com/v1/x"), "KOVA=abc");
    EXPECT_EQ(sentTo(manager, "https://api.example.com/"), "");
    EXPECT_EQ(manager.configDomain(), "api.example.com");
    EXPECT_EQ(testbed.stored(PersistenceKeys::domain), "api.example.com");
}

TEST(Cookie, FollowsEachChangeOfTheAccount) {
    const Testbed testbed;
    testbed.put(PersistenceKeys::domain, "example.com");
    Manager manager(testbed.start());
    EXPECT_EQ(sentTo(manager), "");
    for (const char* value : {"one", "two"}) {
        manager.setKova(value);
        EXPECT_EQ(sentTo(manager), std::string("KOVA=") + value);
    }
}

TEST(Cookie, StaysWhenTheAccountLeaves) {
    const Testbed testbed;
    testbed.put(PersistenceKeys::domain, "example.com");
    Manager manager(testbed.start());
    manager.setKova("abc");
    manager.setKova(std::nullopt);
    EXPECT_EQ(sentTo(manager), "KOVA=abc");
}

TEST(Cookie, IsNotInstalledWithoutADomain) {
    const Testbed testbed;
    Manager manager(testbed.start());
    manager.setKova("abc");
    EXPECT_THAT(manager.platform().transport.cookies->cookies(), ElementsAre());
    EXPECT_EQ(testbed.stored(PersistenceKeys::kova), "abc");
}

TEST(Cookie, IsThereWhenAnObserverLearnsOfTheAccount) {
    const Testbed testbed;
    testbed.put(PersistenceKeys::domain, "example.com");
    Manager manager(testbed.start());
    std::string seen;
    manager.kovaObserver().subscribe({.next = [&](const auto&) { seen = sentTo(manager); }});
    manager.setKova("abc");
    EXPECT_EQ(seen, "KOVA=abc");
}

TEST(Cookie, IsMadeForTheCurrentDomain) {
    const Testbed testbed;
    testbed.put(PersistenceKeys::domain, "example.com");
    const Manager manager(testbed.start());
    EXPECT_EQ(manager.createCookie("abc"), account("abc"));
    EXPECT_EQ(manager.createCookie(std::nullopt), std::nullopt);
}

TEST(CreateCookie, IsAbsentWithoutADomainOrWithOneThatIsNoURL) {
    const Testbed testbed;
    EXPECT_EQ(Manager(testbed.start()).createCookie("abc"), std::nullopt);
    testbed.put(PersistenceKeys::domain, "no host");
    EXPECT_EQ(Manager(testbed.start()).createCookie("abc"), std::nullopt);
}

TEST(Sync, KeepsTheDomainAndInstallsTheCookie) {
    const Testbed testbed;
    Manager manager(testbed.start());
    manager.sync(account("abc"));
    EXPECT_EQ(manager.configDomain(), "example.com");
    EXPECT_EQ(testbed.stored(PersistenceKeys::domain), "example.com");
    EXPECT_EQ(sentTo(manager), "KOVA=abc");
}

TEST(Sync, ReplacesTheCookieOfTheSameNameDomainAndPath) {
    const Testbed testbed;
    Manager manager(testbed.start());
    manager.sync(account("one"));
    manager.sync(account("two"));
    EXPECT_THAT(manager.platform().transport.cookies->cookies(), ElementsAre(account("two")));
}

TEST(Sync, ChangesNothingWithoutACookieOrAValue) {
    const Testbed testbed;
    Manager manager(testbed.start());
    manager.sync(std::nullopt);
    manager.sync(account(""));
    EXPECT_EQ(manager.configDomain(), std::nullopt);
    EXPECT_THAT(manager.platform().transport.cookies->cookies(), ElementsAre());
}

TEST(Sync, WithoutAStorageKeepsTheDomain) {
    const Testbed testbed;
    Platform platform = testbed.start();
    platform.transport.cookies = nullptr;
    Manager manager(platform);
    manager.sync(account("abc"));
    EXPECT_EQ(manager.configDomain(), "example.com");
}

TEST(RegenerateCookie, InstallsTheCurrentAccountsCookieAgain) {
    const Testbed testbed;
    testbed.put(PersistenceKeys::domain, "example.com");
    Manager manager(testbed.start());
    manager.setKova("abc");
    manager.platform().transport.cookies->setCookie(account("other"));
    manager.regenerateCookie();
    EXPECT_EQ(sentTo(manager), "KOVA=abc");
}

TEST(RegenerateCookie, DoesNothingWithoutAnAccount) {
    const Testbed testbed;
    testbed.put(PersistenceKeys::domain, "example.com");
    Manager manager(testbed.start());
    manager.regenerateCookie();
    EXPECT_EQ(sentTo(manager), "");
}

TEST(Cookie, IsInstalledAgainAndAgainOverStarts) {
    for (const std::string host : {"example.com", "localhost", "192.0.2.7", "[2001:db8::1]"}) {
        const Testbed testbed;
        {
            Manager first(testbed.start());
            first.setKova("one");
            first.sync(first.kovaCookie(skell::Response(
                {.status = 200, .headers = {{"Set-Cookie", "KOVA=one"}}, .url = "https://" + host + "/a/login"})));
        }
        Manager second(testbed.start());
        EXPECT_EQ(sentTo(second, "https://" + host + "/"), "KOVA=one") << host;
        second.setKova("two");
        EXPECT_EQ(sentTo(second, "https://" + host + "/"), "KOVA=two") << host;
        EXPECT_EQ(second.configDomain(), host);
    }
}

TEST(CookieKeys, AreTheManagers) { EXPECT_EQ(ConfigurationManager::CookieKeys::kova, "KOVA"); }

}  // namespace
}  // namespace quorin
