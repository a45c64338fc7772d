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

void load(const std::string& text) {
    const auto document = *json::parse(text, text.capacity() - text.size()).value()->asObject();
    if (!loading::configurationIn(document, text, {.deviceID = "D", .brand = Brand::orvel})) std::abort();
}

/// The second of two loads on a thread, so without the parser's own memory, which is kept between loads.
Count countOf(std::string text) {
    text.reserve(text.size() + json::parsePadding);
    load(text);
    count = {};
    load(text);
    return count;
}

bool print(const char* size, const std::string& text, double allocationFloor, double bytesFloor) {
    const Count counted = countOf(text);
    const double bytes = static_cast<double>(counted.peak) / static_cast<double>(text.size());
    const auto allocations = static_cast<double>(counted.allocations);
    const bool holds = allocations <= 1.25 * allocationFloor && bytes <= 1.25 * bytesFloor;
    std::printf("load, %-5s  allocations %4.0f (floor %3.0f)   peak bytes / document %.2f (floor %.0f)   %s\n", size,
                allocations, allocationFloor, bytes, bytesFloor, holds ? "held" : "FAILED");
    return holds;
}

}  // namespace
}  // namespace quorin::bench

int main() {
    const bool small = quorin::bench::print("small", quorin::bench::smallDocument(), 150, 8);
    const bool large = quorin::bench::print("large", quorin::bench::largeDocument(), 500, 6);
    return small && large ? 0 : 1;
}
