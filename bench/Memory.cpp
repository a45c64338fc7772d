// Allocations and peak bytes of one typed load, counted by the allocator of this program. Both are exact.
#include "quorin/platform/json/Parse.hpp"

#include "bench/Documents.hpp"
#include "bench/Measured.hpp"
#include "bench/Ours.hpp"
#include "tests/faults/FailingMemory.hpp"

#include <cstdio>
#include <string>
#include <string_view>

namespace quorin::bench {
namespace {

/// What the second of two loads on a thread takes, so without the parser's own memory, which is kept between loads.
faults::Taken takenByLoad(std::string text) {
    text.reserve(text.size() + json::parsePadding);
    load(text);
    std::shared_ptr<const Configuration> kept;
    return faults::takenBy([&] { kept = load(text); });
}

std::vector<Measured> rows() {
    const auto small = takenByLoad(smallDocument());
    const auto large = takenByLoad(largeDocument());
    const auto sizeOf = [](const std::string& text) { return static_cast<double>(text.size()); };
    return {
        {"allocations of one load, small", static_cast<double>(small.allocations), 1, 150, 90},
        {"allocations of one load, large", static_cast<double>(large.allocations), 1, 500, 240},
        {"peak bytes of one load, small / document", static_cast<double>(small.peak), sizeOf(smallDocument()), 8, 5},
        {"peak bytes of one load, large / document", static_cast<double>(large.peak), sizeOf(largeDocument()), 6, 4},
    };
}

void printGrowth() {
    const char* separator = "[";
    for (const std::string& text : growingDocuments()) {
        const auto taken = takenByLoad(text);
        std::printf("%s\n  {\"bytes\": %zu, \"allocations\": %ld, \"peak\": %ld, \"kept\": %ld}", separator,
                    text.size(), taken.allocations, taken.peak, taken.kept);
        separator = ",";
    }
    std::puts("\n]");
}

}  // namespace
}  // namespace quorin::bench

// quorin_bench_memory rows|growth: either as JSON.
int main(int argc, char** argv) {
    const std::string_view wanted = argc > 1 ? argv[1] : "";
    if (wanted == "rows") return quorin::bench::print(quorin::bench::rows()), 0;
    if (wanted == "growth") return quorin::bench::printGrowth(), 0;
    std::fputs("quorin_bench_memory rows|growth\n", stderr);
    return 2;
}
