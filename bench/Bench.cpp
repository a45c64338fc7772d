// Ours and its competitors, interleaved in one process, as the rows of a table.
#include "bench/Rows.hpp"

#include <string>
#include <vector>

namespace quorin::bench {
namespace {

/// The rows of all groups whose titles hold the text.
Rows rowsWith(const std::string& text) {
    Rows rows;
    for (const auto group :
         {loadingRows, valueRows, accessorRows, requestRows, identityRows, transferRows, programRows}) {
        for (const Row& row : group()) {
            if (row.title.find(text) != std::string::npos) rows.push_back(row);
        }
    }
    return rows;
}

/// The pattern of all that the rows are made of.
std::string measuresOf(const Rows& rows) {
    std::string pattern = "^(";
    for (const Row& row : rows) pattern += row.ours + "|" + row.theirs + "|";
    pattern.back() = ')';
    return pattern + "/";
}

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const Rows rows = rowsWith(argc > 1 ? argv[1] : "");
    Ratios ratios;
    if (!rows.empty()) benchmark::RunSpecifiedBenchmarks(&ratios, measuresOf(rows));
    print(ratios.of(rows));
    return 0;
}

}  // namespace
}  // namespace quorin::bench

// quorin_bench [--benchmark_OPTION...] [TEXT]: the rows whose titles hold the text, as JSON.
int main(int argc, char** argv) {
    // Rounds of the rows take turns, so that a slow moment of the machine meets all of them.
    std::vector<char*> arguments(argv, argv + argc);
    std::string defaults[] = {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=15",
                              "--benchmark_min_time=0.05"};
    for (std::string& option : defaults) arguments.insert(arguments.begin() + 1, option.data());
    return quorin::bench::main(static_cast<int>(arguments.size()), arguments.data());
}
