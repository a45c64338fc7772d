#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace quorin::bench {

/// One line of the table: what is measured, against what, and the ratio that must not be passed.
struct Row {
    std::string title;
    std::string ours;
    std::string theirs;
    double floor;
    double stretch;
};

/// Keeps every repetition of every benchmark and prints ratios of medians.
class Ratios : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Prints the table; false when a ratio is beyond 1.25 times its floor or was not measured.
    bool print(const std::vector<Row>& rows) const;

private:
    double median(const std::string& name) const;

    std::map<std::string, std::vector<double>> times_;
};

}  // namespace quorin::bench
