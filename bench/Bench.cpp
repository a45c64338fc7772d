// Ours and its competitors, interleaved in one process, as the rows of a table.
#include "bench/Rows.hpp"

#include <cstdio>
#include <string>
#include <vector>

namespace quorin::bench {
namespace {

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Rows rows;
    for (const auto group :
         {loadingRows, valueRows, accessorRows, requestRows, identityRows, transferRows, programRows}) {
        const Rows more = group();
        rows.insert(rows.end(), more.begin(), more.end());
    }
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);
    ratios.print(rows);
    return 0;
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
