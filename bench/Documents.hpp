#pragma once

#include <string>
#include <vector>

/// The documents that are measured. A seeded generator makes them, so every run measures the same bytes.
namespace quorin::bench {

/// About 6 KB: one brand, eight endpoints at the root.
const std::string& smallDocument();

/// About 70 KB: eight brands, forty endpoints at the root.
const std::string& largeDocument();

/// About 2 MB: eight brands with hundreds of features, and a thousand endpoints at the root.
const std::string& hugeDocument();

/// Documents of one shape, from about 1 KB to about 10 MB: a brand's features and the endpoints become more.
std::vector<std::string> growingDocuments();

}  // namespace quorin::bench
