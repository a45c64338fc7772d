// A section of the current configuration, against one increment of an atomic number.
#include "bench/Documents.hpp"
#include "bench/Ours.hpp"
#include "bench/Rows.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <atomic>

namespace quorin::bench {
Rows accessorRows() {
    const support::TemporaryFolder folder;
    makeCurrent(folder.write("a.json", largeDocument()));
    static std::atomic<long> number = 0;
    const auto section = [] { return ConfigurationManager::features(); };
    const auto increment = [] { return ++number; };
    add("section-1", section);
    add("increment-1", increment);
    add("section-4", section)->Threads(4);
    add("increment-4", increment)->Threads(4);
    return {
        {"section accessor, 1 thread / atomic increment", "section-1", "increment-1", 12, 7},
        {"section accessor, 4 threads / atomic increment", "section-4", "increment-4", 60, 30},
    };
}

}  // namespace quorin::bench
