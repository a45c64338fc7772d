#include "bench/Ratios.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace quorin::bench {

void Ratios::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration) times_[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
    }
}

double Ratios::median(const std::string& name) const {
    const auto found = times_.find(name);
    if (found == times_.end()) {
        std::fprintf(stderr, "%s was not measured: the bench is broken\n", name.c_str());
        std::exit(1);
    }
    std::vector<double> times = found->second;
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

std::vector<Measured> Ratios::of(const std::vector<Row>& rows) const {
    std::vector<Measured> measured;
    for (const Row& row : rows)
        measured.push_back({row.title, median(row.ours), median(row.theirs), row.floor, row.stretch});
    return measured;
}

}  // namespace quorin::bench
