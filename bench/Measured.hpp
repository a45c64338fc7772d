#pragma once

#include <string>
#include <vector>

namespace quorin::bench {

/// A row of the table with both of its sides. A floor of 0 is none.
struct Measured {
    std::string title;
    double ours;
    double theirs;
    double floor;
    double stretch;
};

/// Prints the rows as JSON, for `report.py`.
void print(const std::vector<Measured>& rows);

}  // namespace quorin::bench
