#pragma once

#include "Page.hpp"
#include "tools/document/HTML.hpp"

/// The parts of the page. `id` begins the names of their anchors, which are told from those of other sources by it.
namespace quorin::page {

void findingsPart(const Source& source, const std::string& id, const LineTaker& take);
void readersPart(const Source& source, const std::string& id, const LineTaker& take);
void requestsPart(const Source& source, const LineTaker& take);
void changesPart(std::span<const document::BrandChanges> changes, const LineTaker& take);

/// Between tags, with its own in front and behind: `element("p", "a < b")`.
inline std::string element(const std::string& tag, std::string_view text) {
    return "<" + tag + ">" + document::escapedHTML(text) + "</" + tag + ">";
}

}  // namespace quorin::page
