#include "bench/Ratios.hpp"

#include <algorithm>
#include <cstdio>

namespace quorin::bench {

void Ratios::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration) times_[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
    }
}

double Ratios::median(const std::string& name) const {
    const auto found = times_.find(name);
    if (found == times_.end()) return 0;
    std::vector<double> times = found->second;
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

bool Ratios::print(const std::vector<Row>& rows) const {
    bool held = true;
    std::printf("%-44s %7s %7s %8s  %s\n", "row", "ratio", "floor", "stretch", "verdict");
    for (const Row& row : rows) {
        const double theirs = median(row.theirs);
        const double ours = median(row.ours);
        const double ratio = theirs > 0 && ours > 0 ? ours / theirs : 1e9;
        const bool failed = ratio > 1.25 * row.floor;
        const char* const verdict = failed                ? "FAILED"
                                    : ratio > row.floor   ? "beyond the floor"
                                    : ratio > row.stretch ? "held"
                                                          : "stretch reached";
        std::printf("%-44s %7.2f %7.2f %8.2f  %s\n", row.title.c_str(), ratio, row.floor, row.stretch, verdict);
        held = held && !failed;
    }
    return held;
}

}  // namespace quorin::bench
