// Private memory of an app before it touches the library and after one load of a file, in KiB, on one line.
//
//     quorin_bench_resident FILE

#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>

namespace {

using namespace std::string_view_literals;

/// The pages that the process has written and shares with no other, in KiB; absent where the kernel does not tell.
/// Clean ones are left out: whether they are shared depends on what else the machine runs.
std::optional<long> privateMemory() {
    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string name; rollup >> name;) {
        long size = 0;
        if (name == "Private_Dirty:"sv && rollup >> size) return size;
    }
    return std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return std::fputs("usage: quorin_bench_resident FILE\n", stderr), 2;
    const auto before = privateMemory();
    quorin::Platform platform = quorin::Platform::standard({.name = "Sample", .shortVersion = "2.4"});
    platform.store = std::make_shared<quorin::MorrStandard>(quorin::morr::Options{.path = ":memory:"});
    quorin::platform::install(platform);
    auto& manager = quorin::ConfigurationManager::sharedInstance();
    const auto loaded = quorin::rx::wait(
        manager.initialize(quorin::PathURL{argv[1]}, {.deviceID = "living-room", .brand = quorin::Brand::orvel}));
    const auto after = privateMemory();
    if (!loaded || !before || !after) return std::fputs("no load, or no figures from the kernel\n", stderr), 1;
    std::printf("%ld %ld\n", *before, *after);
    return 0;
}
