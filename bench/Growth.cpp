// What becomes of the time of a load and of an accessor as documents and threads grow. Prints as its bench library
// does.
#include "quorin/platform/json/Parse.hpp"

#include "bench/Competitors.hpp"
#include "bench/Documents.hpp"
#include "bench/Ours.hpp"
#include "bench/Rows.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <atomic>
#include <memory>
#include <string>

namespace quorin::bench {
namespace {

/// The accessor, while the file is what has been loaded.
benchmark::internal::Benchmark* addSection(const std::string& name, const std::string& file) {
    return benchmark::RegisterBenchmark(name.c_str(),
                                        [file](benchmark::State& state) {
                                            if (state.thread_index() == 0) makeCurrent(file);
                                            for ([[maybe_unused]] auto round : state)
                                                benchmark::DoNotOptimize(ConfigurationManager::features());
                                        })
        ->UseRealTime();
}

void addSize(const support::TemporaryFolder& folder, std::string text) {
    const std::string size = std::to_string(text.size());
    addSection("section/" + size, folder.write(size + ".json", text));
    text.reserve(text.size() + json::parsePadding);
    const auto padded = std::make_shared<const std::string>(std::move(text));  // a copy would have no room behind it
    add("dom/" + size, [padded] { return parseWithDOM(*padded); });
    add("load/" + size, [padded] { return load(*padded); });
}

void addThreads(const std::string& file) {
    static std::atomic<long> number = 0;
    addSection("section-threads", file)->ThreadRange(1, 8);
    add("increment-threads", [] { return ++number; })->ThreadRange(1, 8);
}

}  // namespace
}  // namespace quorin::bench

int main(int argc, char** argv) {
    using namespace quorin::bench;
    benchmark::Initialize(&argc, argv);
    const quorin::support::TemporaryFolder folder;
    for (std::string& text : growingDocuments()) addSize(folder, std::move(text));
    addThreads(folder.write("large.json", largeDocument()));
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
