// Allocations and peak bytes of one typed load, counted by the allocator of this program. Both are exact.
#include "quorin/core/Loading.hpp"
#include "quorin/platform/json/Parse.hpp"

#include "bench/Documents.hpp"

#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// What the program has asked for since the count began.
struct Count {
    std::size_t allocations = 0;
    std::size_t bytes = 0;
    std::size_t peak = 0;
};
Count count;

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size);
    if (!memory) throw std::bad_alloc();
    ++count.allocations;
    count.bytes += malloc_usable_size(memory);
    count.peak = std::max(count.peak, count.bytes);
    return memory;
}

void operator delete(void* memory) noexcept {
    count.bytes -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace quorin::bench {
namespace {

auto load(const std::string& text) {
    const auto document = *json::parse(text, text.capacity() - text.size()).value()->asObject();
    auto loaded = loading::configurationIn(document, text, {.deviceID = "D", .brand = Brand::orvel});
    if (!loaded) std::abort();
    return loaded;
}

/// The second of two loads on a thread, so without the parser's own memory, which is kept between loads. Its bytes are
/// those that the configuration keeps.
Count countOf(std::string text) {
    text.reserve(text.size() + json::parsePadding);
    (void)load(text);
    count = {};
    const auto kept = load(text);
    return count;
}

/// A line of the table, and the count that must not be passed.
struct Row {
    const char* title;
    double counted;
    double floor;
    double stretch;
};

bool print(const Row& row) {
    const bool holds = row.counted <= 1.25 * row.floor;
    std::printf("%-40s %7.2f (floor %3.0f)   %s\n", row.title, row.counted, row.floor, holds ? "held" : "FAILED");
    return holds;
}

/// As `quorin_bench` prints its rows.
void printForReport(const std::vector<Row>& rows) {
    const char* separator = "[";
    for (const Row& row : rows) {
        std::printf("%s\n  {\"row\": \"%s\", \"ours\": %.4f, \"theirs\": 1, \"floor\": %g, \"stretch\": %g}", separator,
                    row.title, row.counted, row.floor, row.stretch);
        separator = ",";
    }
    std::puts("\n]");
}

std::vector<Row> rows() {
    const auto& small = smallDocument();
    const auto& large = largeDocument();
    const Count ofSmall = countOf(small);
    const Count ofLarge = countOf(large);
    const auto peak = [](const Count& counted, const std::string& text) {
        return static_cast<double>(counted.peak) / static_cast<double>(text.size());
    };
    return {
        {"allocations of one load, small", static_cast<double>(ofSmall.allocations), 150, 90},
        {"allocations of one load, large", static_cast<double>(ofLarge.allocations), 500, 240},
        {"peak bytes of one load, small / document", peak(ofSmall, small), 8, 5},
        {"peak bytes of one load, large / document", peak(ofLarge, large), 6, 4},
    };
}

void printGrowth() {
    const char* separator = "[";
    for (const std::string& text : growingDocuments()) {
        const Count counted = countOf(text);
        std::printf("%s\n  {\"bytes\": %zu, \"allocations\": %zu, \"peak\": %zu, \"kept\": %zu}", separator,
                    text.size(), counted.allocations, counted.peak, counted.bytes);
        separator = ",";
    }
    std::puts("\n]");
}

int main(std::string_view wanted) {
    if (wanted == "growth") return printGrowth(), 0;
    const std::vector<Row> counted = rows();
    if (wanted == "rows") return printForReport(counted), 0;
    bool hold = true;
    for (const Row& row : counted) hold = print(row) && hold;
    return hold ? 0 : 1;
}

}  // namespace
}  // namespace quorin::bench

// quorin_bench_memory [rows | growth]: judges the rows, or prints them or the growth as JSON.
int main(int argc, char** argv) { return quorin::bench::main(argc > 1 ? argv[1] : ""); }
