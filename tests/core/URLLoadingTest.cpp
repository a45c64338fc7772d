#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/FaultServer.hpp"
#include "tests/support/Nginx.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <future>

namespace quorin {
namespace {

using support::answer;
using support::FaultServer;
using Instance = ConfigurationManager::Instance;
using std::chrono::milliseconds;

constexpr const char* document = R"({"orvel": {"common": {"adChoices": "x"}}})";

/// A manager and a server that answers in ways of its own.
class URLLoading : public testing::Test {
protected:
    auto load(const std::string& url, const LoadArguments& arguments = {.deviceID = "D", .brand = Brand::orvel}) const {
        return rx::wait(manager_->initialize(url, arguments));
    }

    SkellError::Kind failureOf(const std::string& url) const {
        const auto loaded = load(url);
        const SkellError* const error = loaded ? nullptr : loaded.error().as<SkellError>();
        EXPECT_NE(error, nullptr) << url;
        return error ? error->kind : SkellError::Kind::cancelled;
    }

    void restart(const std::function<void(skell::Transport&)>& change) {
        Platform platform = bed_.start();
        change(platform.transport);
        manager_ = std::make_unique<Instance>(platform);
    }

    const Testbed bed_{};
    std::unique_ptr<Instance> manager_ = std::make_unique<Instance>(bed_.start());
    FaultServer server_{{{"/config.json", answer(200, document)},
                         {"/error", answer(500, document)},
                         {"/list", answer(200, "[]")},
                         {"/broken", answer(200, "{\n \"a\": }")},
                         {"/moved", answer(302, "", "Location: /config.json\r\n")},
                         {"/cut", "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{"},
                         {"/large", answer(200, std::string(2000, ' ') + document)}}};
};

TEST_F(URLLoading, MakesTheConfigurationTheCurrentOne) {
    const auto loaded = load(server_.url("/config.json"));
    ASSERT_TRUE(loaded);
    EXPECT_EQ((*loaded)->common->adChoices, "x");
    EXPECT_EQ((*loaded)->brand, Brand::orvel);
    EXPECT_EQ(manager_->configuration(), *loaded);
}

TEST_F(URLLoading, FollowsARedirect) { EXPECT_TRUE(load(server_.url("/moved"))); }

TEST_F(URLLoading, SendsNothingUntilItIsSubscribed) {
    const auto stream = manager_->initialize(server_.url("/config.json"), {});
    EXPECT_TRUE(server_.requests().empty());
    EXPECT_FALSE(manager_->configured());
    ASSERT_TRUE(rx::wait(stream));
    ASSERT_TRUE(rx::wait(stream));
    EXPECT_EQ(server_.requests().size(), 2U);
}

TEST_F(URLLoading, SendsNoIdentity) {
    manager_->setKova("account");
    ASSERT_TRUE(load(server_.url("/config.json")));
    const auto request = server_.requests().front();
    EXPECT_EQ(request.method, "GET");
    for (const char* const name : {"User-Agent", "KOVA", "Cookie", "VEXO-USERTZ"})
        EXPECT_EQ(request.header(name), std::nullopt) << name;
}

TEST_F(URLLoading, PassesTheFailuresOfTheRequestOn) {
    EXPECT_EQ(failureOf(server_.url("/error")), SkellError::Kind::status);
    EXPECT_EQ(failureOf(server_.url("/missing")), SkellError::Kind::status);
    EXPECT_EQ(failureOf(server_.url("/list")), SkellError::Kind::decoding);
    EXPECT_EQ(failureOf(server_.url("/broken")), SkellError::Kind::decoding);
    EXPECT_EQ(failureOf(server_.url("/cut")), SkellError::Kind::network);
    EXPECT_EQ(failureOf("file:///etc/passwd"), SkellError::Kind::invalidURL);
    EXPECT_EQ(failureOf(""), SkellError::Kind::invalidURL);
}

TEST_F(URLLoading, SaysWhereABrokenBodyBreaks) {
    const auto loaded = load(server_.url("/broken"));
    EXPECT_NE(loaded.error().description().find("line 2"), std::string::npos) << loaded.error().description();
}

TEST_F(URLLoading, NeverMakesAnErrorPageTheConfiguration) {
    EXPECT_FALSE(load(server_.url("/error")));
    EXPECT_FALSE(manager_->configured());
}

TEST_F(URLLoading, KeepsTheOldConfigurationWhenItFails) {
    const auto first = *load(server_.url("/config.json"));
    EXPECT_FALSE(load(server_.url("/error")));
    EXPECT_EQ(manager_->configuration(), first);
}

TEST_F(URLLoading, TakesABodyUpToTheLimit) {
    const std::size_t size = 2000 + std::string(document).size();
    restart([&](skell::Transport& transport) { transport.maxBody = size; });
    EXPECT_TRUE(load(server_.url("/large")));
    restart([&](skell::Transport& transport) { transport.maxBody = size - 1; });
    EXPECT_EQ(failureOf(server_.url("/large")), SkellError::Kind::tooLarge);
}

TEST_F(URLLoading, EndsWhenItsTimeHasPassed) {
    FaultServer silent([](const auto&, support::Connection& connection) { connection.isClosedByClient(3000); });
    restart([](skell::Transport& transport) { transport.totalTimeout = milliseconds(200); });
    EXPECT_EQ(failureOf(silent.url("/")), SkellError::Kind::timeout);
}

TEST_F(URLLoading, ReportsWhatWasNotTaken) {
    FaultServer server({{"/a", answer(200, "{\"orvel\":\n {\"auth\": 1}}")}});
    ASSERT_TRUE(load(server.url("/a"), {.brand = Brand::orvel, .findings = true}));
    const auto& findings = manager_->loadReport()->findings->findings;
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].pointer, "/orvel/auth");
    EXPECT_EQ(findings[0].position, (json::Position{2, 11}));
}

TEST_F(URLLoading, MayEndAfterItsManager) {
    std::promise<void> mayAnswer;
    auto released = mayAnswer.get_future().share();
    FaultServer slow([released](const auto&, support::Connection& connection) {
        released.wait();
        connection.send(answer(200, document));
    });
    std::promise<bool> ended;
    manager_->initialize(slow.url("/"), {})
        .subscribe({.next = [&](const auto& loaded) { ended.set_value(loaded != nullptr); },
                    .error = [&](const auto&) { ended.set_value(false); }});
    ASSERT_TRUE(slow.waitForRequests(1));
    manager_.reset();
    mayAnswer.set_value();
    EXPECT_TRUE(ended.get_future().get());
}

TEST_F(URLLoading, ChangesNothingOnceItIsDisposed) {
    std::promise<void> mayAnswer;
    auto released = mayAnswer.get_future().share();
    FaultServer slow([released](const auto&, support::Connection& connection) {
        released.wait();
        connection.send(answer(200, document));
    });
    bool called = false;
    const auto subscription = manager_->initialize(slow.url("/"), {}).subscribe([&](const auto&) { called = true; });
    ASSERT_TRUE(slow.waitForRequests(1));
    subscription.dispose();
    mayAnswer.set_value();
    ASSERT_TRUE(load(server_.url("/config.json")));
    EXPECT_FALSE(called);
}

/// One real server for all of these.
class RealServer : public testing::Test {
protected:
    static support::Nginx& nginx() {
        static support::Nginx server;
        return server;
    }

    auto load(const std::string& url) {
        Platform platform = bed_.start();
        platform.transport.caFile = nginx().caFile();
        manager_ = std::make_unique<Instance>(platform);
        return rx::wait(manager_->initialize(url, {.deviceID = "D"}));
    }

    const Testbed bed_{};
    std::unique_ptr<Instance> manager_{};
};

TEST_F(RealServer, ServesAConfigurationPlainlyZippedAndRedirected) {
    EXPECT_TRUE(load(nginx().url("plain", "/object.json")));
    EXPECT_TRUE(load(nginx().url("plain", "/large.json")));
    EXPECT_TRUE(load(nginx().url("plain", "/moved")));
}

TEST_F(RealServer, ServesAConfigurationOverTLS) { EXPECT_TRUE(load(nginx().url("good", "/object.json"))); }

TEST_F(RealServer, IsNotTrustedWithAnotherCertificate) {
    for (const char* const host : {"expired", "selfsigned", "wronghost"}) {
        const auto loaded = load(nginx().url(host, "/object.json"));
        ASSERT_FALSE(loaded) << host;
        EXPECT_EQ(loaded.error().as<SkellError>()->kind, SkellError::Kind::tls) << host;
    }
}

TEST_F(RealServer, FailsWithItsStatus) {
    const auto missing = load(nginx().url("plain", "/missing"));
    EXPECT_EQ(missing.error().as<SkellError>()->status, 404);
    const auto failing = load(nginx().url("plain", "/failing"));
    EXPECT_EQ(failing.error().as<SkellError>()->status, 500);
    EXPECT_FALSE(manager_->configured());
}

}  // namespace
}  // namespace quorin
