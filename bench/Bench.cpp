#include "quorin/core/Loading.hpp"
#include "quorin/platform/json/Parse.hpp"

#include "bench/Competitors.hpp"
#include "bench/Documents.hpp"
#include "bench/Ratios.hpp"

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace quorin::bench {
namespace {

/// The text with the room behind it that a file or a response is read with.
const std::string& padded(const std::string& document) {
    static auto& copies = *new std::map<std::string, std::string>;
    auto& copy = copies[document];
    if (copy.empty()) (copy = document).reserve(document.size() + json::parsePadding);
    return copy;
}

json::ParseResult parse(const std::string& text) { return json::parse(text, text.capacity() - text.size()); }

auto load(const std::string& text, const std::shared_ptr<ReadReport>& report = {}) {
    const auto document = *parse(text).value()->asObject();
    return *loading::configurationIn(document, text, {.deviceID = "D", .brand = Brand::orvel, .report = report});
}

Configuration read(const DocumentMap& section, ReadReport* report) { return *Configuration::fromJSON(section, report); }

template <class Work>
void add(const std::string& name, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
        for ([[maybe_unused]] auto round : state) benchmark::DoNotOptimize(work());
    });
}

void addAll() {
    const std::string& small = padded(smallDocument());
    const std::string& large = padded(largeDocument());
    for (const auto& [size, text] : {std::pair<std::string, const std::string&>{"small", small}, {"large", large}}) {
        add("dom-" + size, [&text = text] { return parseWithDOM(text); });
        add("parse-" + size, [&text = text] { return parse(text); });
        add("load-" + size, [&text = text] { return load(text); });
    }
    add("hand-large", [&large] { return loadByHand(large, "orvel"); });
    const DocumentMap section = *parse(large).value()->asObject()->find("orvel")->asObject();
    add("read", [section] { return read(section, nullptr); });
    add("read-observed", [section] {
        ReadReport report;
        return read(section, &report);
    });
}

/// The two loads must yield the same, or their ratio says nothing.
void compareResults() {
    Configuration ours = *load(padded(largeDocument()));
    ours.brand.reset();
    ours.device.reset();
    ours.version.reset();
    if (ours == loadByHand(largeDocument(), "orvel")) return;
    std::fputs("the hand-written load reads something else: the bench is broken\n", stderr);
    std::exit(1);
}

int main(int argc, char** argv) {
    compareResults();
    std::printf("documents: small %zu bytes, large %zu bytes\n", smallDocument().size(), largeDocument().size());
    benchmark::Initialize(&argc, argv);
    addAll();
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);
    const bool held = ratios.print({
        {"parse into our own tree, small / dom", "parse-small", "dom-small", 3, 1.6},
        {"parse into our own tree, large / dom", "parse-large", "dom-large", 2.5, 1.5},
        {"full typed load, small / dom", "load-small", "dom-small", 7, 3},
        {"full typed load, large / dom", "load-large", "dom-large", 3.5, 1.6},
        {"full typed load, large / by hand on a tree", "load-large", "hand-large", 0.16, 0.07},
        {"read without an observer / with one", "read", "read-observed", 1, 0.9},
    });
    return held ? 0 : 1;
}

}  // namespace
}  // namespace quorin::bench

int main(int argc, char** argv) {
    // Rounds of the rows take turns, so that a slow moment of the machine meets all of them.
    std::vector<char*> arguments(argv, argv + argc);
    std::string defaults[] = {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=15",
                              "--benchmark_min_time=0.05"};
    for (std::string& option : defaults) arguments.insert(arguments.begin() + 1, option.data());
    return quorin::bench::main(static_cast<int>(arguments.size()), arguments.data());
}
