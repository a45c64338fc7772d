#pragma once

#include "Changes.hpp"

#include <string>
#include <vector>

/// Comparisons of documents as people and programs read them. Control characters are left to who prints the lines.
namespace quorin::document {

/// What differs for some brands, and where they read.
struct BrandChanges {
    BrandView before{};
    BrandView after{};
    std::vector<Change> changes{};

    /// The brand, or the whole document with the brands that read it.
    std::string title() const;
    /// The brands read a section in one document and the whole of the other: in words; else empty.
    std::string move() const;
    /// Whether those of `other` notice the same, and something.
    bool isAs(const BrandChanges& other) const;
};

/// For a terminal: a line for the brands, then one a change. Long values are cut. Where the same is told already of
/// `told`, null if not, only that is said.
std::vector<std::string> textLines(const BrandChanges& of, const BrandChanges* told = nullptr);

/// As GitHub's Markdown: a heading, then a table with values as code, of which nothing can become markup. Long values
/// are cut. `told` as above.
std::vector<std::string> markdownLines(const BrandChanges& of, const BrandChanges* told = nullptr);

/// For programs, with whole values: `{"brands","changes","equal","sections":{"new","old"}}`, each change
/// `{"grade","new","old","path","why"}` without those members that it does not have.
DocumentMap recordOf(const BrandChanges& of);

}  // namespace quorin::document
