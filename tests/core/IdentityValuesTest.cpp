#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/FaultServer.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace quorin {
namespace {

using Instance = ConfigurationManager::Instance;

/// Nothing, much, and what other layers cut off, take apart or repair.
const std::vector<std::string>& difficultTexts() {
    static const auto& texts = *new std::vector<std::string>{
        "",
        std::string(1 << 20, 'm'),
        std::string("before\0after\0", 13),
        R"(it's "quoted" \ `so`; DROP TABLE entries; --)",
        "\xf0\x9f\x8e\xac e\xcc\x81 \xe2\x80\xa8",
        "\xff\xfe \xc3( \xed\xa0\x80",
        "line\r\nline\t\x1b[0m ",
        "null",
        "007",
    };
    return texts;
}

std::vector<std::string> valuesOf(const Instance& manager) {
    return {manager.kova().value_or("none"), manager.parentProfileID(), manager.childProfileID(),
            manager.profileJWT().value_or("none"), manager.VEXOMVPD().value_or("none")};
}

/// The text marked, so that each value is another.
void assignAll(Instance& manager, const std::string& text) {
    manager.setKova(text);
    manager.setParentProfileID("p" + text);
    manager.setChildProfileID(text + "c");
    manager.setProfileJWT(text + text);
    manager.setVEXOMVPD(text);
}

std::vector<std::string> allOf(const std::string& text) { return {text, "p" + text, text + "c", text + text, text}; }

TEST(IdentityValues, ComeBackAsTheyWentIn) {
    const Testbed bed;
    for (const std::string& text : difficultTexts()) {
        Instance manager(bed.start());
        assignAll(manager, text);
        EXPECT_TRUE(valuesOf(manager) == allOf(text)) << text.substr(0, 50);
        EXPECT_EQ(manager.platform().store->status().kind, morr::Status::Kind::open);
        EXPECT_TRUE(valuesOf(Instance(bed.start())) == allOf(text)) << text.substr(0, 50);
    }
}

TEST(IdentityValues, AreObservedAsTheyWentIn) {
    const Testbed bed;
    Instance manager(bed.start());
    std::vector<std::string> seen;
    manager.kovaObserver().subscribe({.next = [&](const auto& value) { seen.push_back(*value); }});
    for (const std::string& text : difficultTexts()) manager.setKova(text);
    EXPECT_TRUE(seen == difficultTexts());
}

TEST(IdentityValues, ThatAreEmptyAreNotAbsent) {
    const Testbed bed;
    assignAll(*std::make_unique<Instance>(bed.start()), "");
    const Instance manager(bed.start());
    EXPECT_EQ(manager.kova(), "");
    EXPECT_EQ(manager.profileJWT(), "");
    EXPECT_EQ(manager.profileBind()->profileJWT, "");
    EXPECT_EQ(manager.defaultHeaders().at("KOVA"), "");
}

/// Sends the default headers of a manager with this account; the error.
rx::Error errorOfSending(const support::FaultServer& server, const std::string& account) {
    const Testbed bed;
    Instance manager(bed.start());
    manager.setKova(account);
    auto request = skell::Request::GET(server.url("/"));
    request.headers = manager.defaultHeaders();
    return rx::wait(request.response()).error();
}

TEST(Account, ForgesNoHeader) {
    const support::FaultServer server({{"/", support::answer(200)}});
    for (const std::string& account :
         {std::string("SECRET\r\nX-Forged: yes"), std::string("SECRET\nX-Forged: yes"),
          std::string("SECRET\rX-Forged: yes"), std::string("SECRET\0X-Forged: yes", 20)}) {
        const rx::Error error = errorOfSending(server, account);
        ASSERT_TRUE(error.as<SkellError>());
        EXPECT_EQ(error.as<SkellError>()->kind, SkellError::Kind::invalidRequest);
        EXPECT_NE(error.description().find("KOVA"), std::string::npos) << error.description();
        EXPECT_EQ(error.description().find("SECRET"), std::string::npos);
        EXPECT_EQ(error.description().find("X-Forged"), std::string::npos);
    }
    EXPECT_EQ(server.acceptedConnections(), 0);
}

TEST(Account, GoesOverTheWireAsItIs) {
    const support::FaultServer server({{"/", support::answer(200)}});
    const Testbed bed;
    Instance manager(bed.start());
    for (const char* account : {"it's \"quoted\": \\", "\xf0\x9f\x8e\xac", "\xff\xfe"}) {
        manager.setKova(account);
        auto request = skell::Request::GET(server.url("/"));
        request.headers = manager.defaultHeaders();
        ASSERT_TRUE(rx::wait(request.response()));
        EXPECT_EQ(server.requests().back().header("KOVA"), account);
    }
}

}  // namespace
}  // namespace quorin
