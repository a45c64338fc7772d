#pragma once

#include <string>

/// The documents that are measured. A seeded generator makes them, so every run measures the same bytes.
namespace quorin::bench {

/// About 6 KB: one brand, eight endpoints at the root.
const std::string& smallDocument();

/// About 70 KB: eight brands, forty endpoints at the root.
const std::string& largeDocument();

}  // namespace quorin::bench
