#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/requests/Skell.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/services/requests/RecordingParams.hpp"
#include "tests/support/Child.hpp"

#include <gtest/gtest.h>

#include <string>

// The shared manager is one for each process, so each of these runs in a process of its own.
namespace quorin {
namespace {

std::string lineOf(const Skell& request) {
    std::string line(request.method.rawValue());
    line += " " + request.url;
    for (const auto& [name, value] : request.headers) line += " " + name + "=" + value;
    return line + " " + std::to_string(request.transport->maxBody);
}

/// A platform of its own, installed; a shared manager with these values.
ConfigurationManager::Instance& startApp(const Testbed& bed) {
    Platform platform = bed.start();
    platform.transport.maxBody = 4321;
    platform::install(platform);
    auto& manager = ConfigurationManager::sharedInstance();
    manager.setKova("account");
    manager.setUserZ("+0100");
    return manager;
}

TEST(SharedBuilding, ReadsTheSharedManagerWhereNoneIsNamed) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  startApp(bed);
                  return lineOf(Skell::build({.requestURL = "http://h/", .removeUserAgent = true}));
              }),
              "GET http://h/ KOVA=account VEXO-USERTZ=+0100 4321");
}

TEST(SharedBuilding, ReadsTheSharedManagerForAServiceToo) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  startApp(bed);
                  return lineOf(Skell::build(RecordingParams({.query = StringMap{{"a", "1"}}, .removeUserAgent = true}),
                                             {.url = "http://h/", .method = HTTPMethod::PUT}));
              }),
              "PUT http://h/?a=1 Content-Type=application/x-www-form-urlencoded KOVA=account VEXO-USERTZ=+0100 4321");
}

TEST(SharedBuilding, SendsTheVersionOfTheConfigurationThatIsCurrent) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  auto& manager = startApp(bed);
                  const std::string path = bed.folder().write("document.json", "{}");
                  std::string versions;
                  for (const char* version : {"1.0.0", "2.0.0"}) {
                      (void)rx::wait(manager.initialize(PathURL{path}, {.version = version}));
                      versions += Skell::build({.requestURL = "/"}).headers.at("appversion") + " ";
                  }
                  return versions;
              }),
              "1.0.0 2.0.0 ");
}

}  // namespace
}  // namespace quorin
