// A process that loads again and again takes no more of the machine than one that has loaded a few times.
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/Descriptors.hpp"
#include "tests/support/FaultServer.hpp"
#include "tests/support/Listener.hpp"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quorin {
namespace {

using support::Child;

/// Bytes that are allocated now, exactly: what a sanitizer counts where there is one; else those of the one arena that
/// `inOneArena` leaves, with what is mapped for large ones.
std::size_t allocatedBytes() {
    void* const counter = dlsym(RTLD_DEFAULT, "__sanitizer_get_current_allocated_bytes");
    if (counter) return reinterpret_cast<std::size_t (*)()>(counter)();
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Before there is any thread, whose memory would be in another arena, of which the system tells nothing.
void inOneArena() { mallopt(M_ARENA_MAX, 1); }

/// What a process takes of the machine.
struct Taken {
    std::size_t bytes = allocatedBytes();
    std::size_t descriptors = support::openDescriptors();
};

/// Does it so often, and tells what the process takes beyond what it took after the first hundred: "none", unless that
/// is a mebibyte of memory, or a descriptor.
std::string growthOver(int times, const std::function<void(int)>& doOnce) {
    constexpr int first = 100;
    for (int i = 0; i < first; ++i) doOnce(i);
    const Taken before;
    for (int i = first; i < times; ++i) doOnce(i);
    const Taken after;
    if (after.bytes < before.bytes + (std::size_t{1} << 20) && after.descriptors <= before.descriptors) return "none";
    return std::to_string(before.bytes) + " bytes became " + std::to_string(after.bytes) + ", "
           + std::to_string(before.descriptors) + " descriptors " + std::to_string(after.descriptors);
}

constexpr const char* document = R"({"features":{"chat":{"enabled":true,"title":"a text that is long enough"}},
    "webservices":{"login":{"url":{"value":"https://h.example/a/path/that/is/long"},"method":"POST"}},
    "layouts":{"home":{"paginationSize":"twenty"}}})";

TEST(LongLife, OfLoadsFromAFileTakesNoMore) {
    const Testbed bed;
    const PathURL file{bed.folder().write("document.json", document)};
    const PathURL broken{bed.folder().write("broken.json", "{\"features\": ")};
    EXPECT_EQ(support::inChild([&] {
                  inOneArena();
                  const ConfigurationManager::Instance manager(bed.start());
                  int loaded = 0;
                  const std::string growth = growthOver(10'000, [&](int i) {
                      const PathURL& source = i % 10 == 9 ? broken : file;
                      if (rx::wait(manager.initialize(source, {.deviceID = "D", .findings = true}))) ++loaded;
                  });
                  return std::to_string(loaded) + " loaded, growth " + growth;
              }),
              "9000 loaded, growth none");
}

/// What the server says to each target, which is no document.
std::map<std::string, std::string> faults() {
    return {{"/missing", support::answer(404, "{}")},
            {"/list", support::answer(200, "[]")},
            {"/broken", support::answer(200, "{\"features\": ")},
            {"/cut", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{"},
            {"/other", "220 mail.example ESMTP\r\n"},
            {"/encoded", support::answer(200, "no gzip", "Content-Encoding: gzip\r\n")},
            {"/circle", support::answer(302, "", "Location: /circle\r\n")},
            {"/elsewhere", support::answer(302, "", "Location: file:///etc/passwd\r\n")}};
}

/// The port of a server in a process of its own, which keeps what it has received.
class ServerProcess {
public:
    ServerProcess()
        : child_([](const Child::Say& say) {
              const support::FaultServer server(faults());
              say(std::to_string(server.port()));
              for (;;) pause();
          }),
          port_(child_.line()) {}
    ~ServerProcess() { child_.kill(); }
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    std::string url(const std::string& target) const { return "http://127.0.0.1:" + port_ + target; }

private:
    Child child_;
    std::string port_;
};

TEST(LongLife, OfLoadsFromURLsThatFailTakesNoMore) {
    const Testbed bed;
    const ServerProcess server;
    std::vector<std::string> urls{"nowhere", "http://127.0.0.1:" + std::to_string(support::closedPort()) + "/"};
    for (const auto& [target, bytes] : faults()) urls.push_back(server.url(target));
    EXPECT_EQ(support::inChild([&] {
                  inOneArena();
                  const ConfigurationManager::Instance manager(bed.start());
                  std::size_t failed = 0;
                  const std::string growth = growthOver(1000, [&](int i) {
                      const auto& url = urls[static_cast<std::size_t>(i) % urls.size()];
                      if (!rx::wait(manager.initialize(url, {.deviceID = "D"}))) ++failed;
                  });
                  return std::to_string(failed) + " failed, growth " + growth;
              }),
              "1000 failed, growth none");
}

/// Without which the tests above would hold of anything.
TEST(LongLife, ThatKeepsWhatItTakesIsSeen) {
    EXPECT_NE(support::inChild([] {
                  inOneArena();
                  std::vector<std::string> kept;
                  return growthOver(2000, [&](int) { kept.emplace_back(1000, 'x'); });
              }),
              "none");
    EXPECT_NE(support::inChild([] {
                  return growthOver(101, [](int i) {
                      if (i == 100) static_cast<void>(dup(0));
                  });
              }),
              "none");
}

}  // namespace
}  // namespace quorin
