#pragma once

#include "quorin/model/Brand.hpp"
#include "quorin/table/ReadReport.hpp"
#include "quorin/table/Section.hpp"

#include <optional>
#include <string_view>

namespace quorin {

/// The part of a document that holds one brand's configuration.
struct BrandSection {
    DocumentMap map{};
    std::string_view name{};     ///< the member under which it stands; empty for the whole document
    bool takesServices = false;  ///< its web services are those of the document's root
    DocumentMap document{};      ///< what it is a part of

    /// The object under the brand's raw value, with the web services of the root in place of its own where the root has
    /// any. The whole document where no brand is given, or it has no such object.
    static BrandSection of(const DocumentMap& document, std::optional<Brand> brand);

    /// Whether a member of this name is meant for a brand, whatever stands there: it is a raw value.
    static bool isName(std::string_view member);

    /// Turns a report about `map` into one about `document`, and adds what the selection itself left out.
    ReadReport reportOfDocument(ReadReport report) const;
};

}  // namespace quorin
