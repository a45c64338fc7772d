#include "quorin/context/PersistenceKeys.hpp"
#include "quorin/core/ConfigurationManager.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Command.hpp"
#include "tests/support/FaultServer.hpp"

#include <gtest/gtest.h>

namespace quorin {

std::string endOfLoad(ConfigurationManager::Instance& manager, const std::string& path);

namespace {

TEST(Host, NeedsNeitherRunTimeTypesNorExceptions) {
    const Testbed bed;
    ConfigurationManager::Instance manager(bed.start());
    EXPECT_EQ(endOfLoad(manager, bed.folder().write("a.json", "{}")),
              R"({"brand":"orvel","device":"D","version":"1.0.0"})");
    EXPECT_EQ(endOfLoad(manager, bed.folder().file("missing")), "configurationManager: configInitialization: notFound");
}

TEST(StartupExample, LoadsTheSampleAndUsesIt) {
    const support::TemporaryFolder folder;
    const std::string printed =
        support::outputOf(QUORIN_EMULATOR QUORIN_BINARY_DIR "/examples/startup/startup " QUORIN_SOURCE_DIR
                                                            "/examples/documents/family.json "
                          + folder.file("store.db"));
    EXPECT_NE(printed.find("5 features\n"), std::string::npos) << printed;
    EXPECT_NE(printed.find("search: GET https://search.vexo.example/v1/search\n"), std::string::npos) << printed;
    EXPECT_NE(printed.find("profile is now p-kids\n"), std::string::npos) << printed;
    EXPECT_NE(printed.find("\nUser-Agent: Sample/2.4("), std::string::npos) << printed;
    EXPECT_NE(printed.find("\nappversion: 2.4\n"), std::string::npos) << printed;
}

TEST(BindExample, SendsTheConfiguredRequestAndKeepsTheToken) {
    const support::FaultServer server({{"/bind", support::answer(200, R"({"profileId": "p-1", "jwt": "token"})")}});
    const support::TemporaryFolder folder;
    const std::string document = folder.write("a.json", R"({"webservices": {"anonymousBind": {"name": "anonymousBind",
        "method": "POST", "header": {"Content-Type": "application/json"}, "url": {"value": ")"
                                                            + server.url("/bind") + R"("}}}})");
    const std::string store = folder.file("store.db");
    EXPECT_EQ(support::outputOf(QUORIN_EMULATOR QUORIN_BINARY_DIR "/examples/bind/bind " + document + " " + store),
              "p-1 is bound\n");
    EXPECT_EQ(server.requests().at(0).method, "POST");
    EXPECT_EQ(server.requests().at(0).body.rfind("{\"profile\":\"p", 0), 0U);
    EXPECT_EQ(std::get<std::string>(*MorrStandard({.path = store}).get(PersistenceKeys::profileJWT)), "token");
}

/// A server with a document whose endpoint "search" is the server's own.
struct SearchServer {
    const support::FaultServer server{[this](const support::ReceivedRequest& request, support::Connection& client) {
        if (request.target == "/a.json")
            client.send(support::answer(200, R"({"webservices": {"search": {"name": "search", "method": "get",
                "url": {"value": ")" + server.url("/search")
                                                 + R"("}}}})"));
        else
            client.send(support::answer(200, "found " + request.target));
    }};
};

TEST(CExample, LoadsObservesAndSends) {
    const SearchServer search;
    const support::TemporaryFolder folder;
    EXPECT_EQ(support::outputOf(QUORIN_EMULATOR QUORIN_BINARY_DIR "/examples/c/observe " + search.server.url("/a.json")
                                + " " + folder.file("store.db")),
              "the account is now account-7\nthe account was removed\n200: found /search?q=blue%20whale\n");
}

TEST(CExample, SaysWhyItCannotLoad) {
    const support::FaultServer server({{"/a.json", support::answer(503, "{}")}});
    const support::TemporaryFolder folder;
    const std::string printed =
        support::outputOf(QUORIN_EMULATOR QUORIN_BINARY_DIR "/examples/c/observe " + server.url("/a.json") + " "
                          + folder.file("store.db") + " 2>&1 || echo status $?");
    EXPECT_EQ(printed.rfind("load: QUORIN_FAILED ", 0), 0U) << printed;
    EXPECT_NE(printed.find("503"), std::string::npos) << printed;
    EXPECT_NE(printed.find("\nstatus 1\n"), std::string::npos) << printed;
}

#ifdef QUORIN_SHARED_LIBRARY
TEST(PythonExample, SaysWhyItCannotLoad) {
    const support::FaultServer server({{"/a.json", support::answer(503, "{}")}});
    const support::TemporaryFolder folder;
    const std::string printed =
        support::outputOf("python3 -B " QUORIN_SOURCE_DIR "/examples/python/observe.py " QUORIN_SHARED_LIBRARY " "
                          + server.url("/a.json") + " " + folder.file("store.db") + " 2>&1 || echo status $?");
    EXPECT_EQ(printed.rfind("no configuration: ", 0), 0U) << printed;
    EXPECT_NE(printed.find("503"), std::string::npos) << printed;
    EXPECT_NE(printed.find("\nstatus 1\n"), std::string::npos) << printed;
}

TEST(PythonExample, LoadsObservesAndSends) {
    const SearchServer search;
    const support::TemporaryFolder folder;
    EXPECT_EQ(support::outputOf("python3 -B " QUORIN_SOURCE_DIR "/examples/python/observe.py " QUORIN_SHARED_LIBRARY " "
                                + search.server.url("/a.json") + " " + folder.file("store.db")),
              "device: device-1\naccounts: [\"account-7\", null]\n200: found /search?q=blue%20whale\n");
}
#endif

}  // namespace
}  // namespace quorin
