#include "quorin/core/Instance.hpp"
#include "quorin/facade/KVTConfiguration.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/FaultServer.hpp"
#include "tests/threads/Race.hpp"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

namespace quorin {
namespace {

TEST(StandardTransport, IsCopiedWholeWhileAnotherTakesItsPlace) {
    const skell::Transport before = skell::Transport::standard();
    const auto replaceBy = [](char letter) {
        return [letter]() -> std::string {
            skell::Transport::setStandard({.caFile = std::string(40, letter), .proxy = std::string(50, letter)});
            return "";
        };
    };
    replaceBy('a')();
    const auto copy = []() -> std::string {
        const skell::Transport transport = skell::Transport::standard();
        const char letter = transport.caFile->front();
        const bool isWhole =
            *transport.caFile == std::string(40, letter) && *transport.proxy == std::string(50, letter);
        return isWhole ? "" : "a mixed transport";
    };
    EXPECT_EQ(threads::Race().add(1, replaceBy('a')).add(1, replaceBy('b')).add(4, copy).run(),
              std::set<std::string>());
    skell::Transport::setStandard(before);
}

TEST(FacadeObject, IsReadByAll) {
    const Testbed bed;
    const ConfigurationManager::Instance manager(bed.start());
    const std::string text =
        R"({"features": {"chat": {"a": 1}}, "webservices": {"s": {"url": {"value": "http://h/"}, "method": "get"}}})";
    const auto loaded = rx::wait(manager.initialize(PathURL{bed.folder().write("a.json", text)}, {.deviceID = "D"}));
    ASSERT_TRUE(loaded);
    const KVTConfiguration configuration(*loaded);
    const auto read = [&]() -> std::string {
        const std::array copies{configuration, configuration};
        if (copies[0].device() != "D" || copies[1].webServices()->at("s").url() != "http://h/")
            return "another service";
        return copies[0].features()->at("chat").encode() == configuration.features()->at("chat").encode()
                   ? ""
                   : "no feature";
    };
    EXPECT_EQ(threads::Race().add(4, read).run(), std::set<std::string>());
}

TEST(ResponseAndError, AreReadByAll) {
    const support::FaultServer server({{"/", support::answer(200, "body", "A: b\r\n")}});
    const auto response = *rx::wait(skell::Request::GET(server.url("/")).response());
    const rx::Error error = rx::wait(skell::Request::GET("nowhere").response()).error();
    const auto read = [&]() -> std::string {
        const std::array copies{response, response};
        if (copies[0].body() != "body" || copies[1].header("a") != "b") return "another response";
        const std::array same{error, error};
        return same[0].description() == same[1].description() ? "" : "another error";
    };
    EXPECT_EQ(threads::Race().add(4, read).run(), std::set<std::string>());
}

}  // namespace
}  // namespace quorin
