#pragma once

#include "quorin/core/BrandSection.hpp"
#include "quorin/model/Configuration.hpp"

#include <span>
#include <string>
#include <vector>

namespace quorin::document {

/// What the apps of some brands see of a document: of one brand that has a section of its own, or of all those that
/// read the whole document.
struct BrandView {
    std::vector<Brand> brands{};  ///< in their order, one or more
    BrandSection section{};

    /// Read as an app reads it, but for the stamps. What was not taken goes to `report`, if one is given.
    Configuration configuration(ReadReport* report = nullptr) const;

    /// The archived form of that.
    DocumentMap values() const { return configuration().encode(); }

    /// What stands in the document for these brands and no other: the section, as it stands; of the whole document, all
    /// but the sections of brands.
    DocumentMap source() const;
};

/// All nine, in their order.
std::vector<Brand> allBrands();

/// The brands that have a section of their own in one or more of the documents, each alone, and last all others
/// together, if there are any.
std::vector<std::vector<Brand>> alike(std::span<const DocumentMap> documents, std::span<const Brand> brands);

/// What `brands`, which are one of those groups, see of a document.
BrandView viewOf(const DocumentMap& document, const std::vector<Brand>& brands);

/// How those who read the whole document are called together.
inline constexpr std::string_view wholeDocument = "whole document";

/// The names of the brands, with ", " between them.
std::string namesOf(std::span<const Brand> brands);

/// The same for programs.
json::List listOf(std::span<const Brand> brands);

}  // namespace quorin::document
