#pragma once

#include "bench/Measured.hpp"

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace quorin::bench {

/// One line of the table: what is measured, against what, and the ratio that must not be passed. A floor of 0 is none.
struct Row {
    std::string title;
    std::string ours;
    std::string theirs;
    double floor = 0;
    double stretch = 0;
};

/// Keeps every repetition of every benchmark.
class Ratios : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The rows with the medians of both sides; ends the program where one was not measured.
    std::vector<Measured> of(const std::vector<Row>& rows) const;

private:
    double median(const std::string& name) const;

    std::map<std::string, std::vector<double>> times_;
};

}  // namespace quorin::bench
