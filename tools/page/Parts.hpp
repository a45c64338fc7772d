#pragma once

#include "Page.hpp"
#include "tools/document/HTML.hpp"

#include <initializer_list>

/// The parts of the page. `id` begins the names of their anchors, which are told from those of other sources by it.
namespace quorin::page {

void findingsPart(const Source& source, const std::string& id, const LineTaker& take);
void readersPart(const Source& source, const std::string& id, const LineTaker& take);
void requestsPart(const Source& source, const LineTaker& take);
void changesPart(std::span<const document::BrandChanges> changes, const LineTaker& take);

/// How many findings there are of each severity, in words of HTML.
std::string findingsInWords(const Source& source);

/// How many changes there are of each grade over all brands, in words of HTML.
std::string changesInWords(std::span<const document::BrandChanges> changes);

/// A word in a frame; the class says how much it matters: "error", "warning" or "note".
inline std::string badge(std::string_view weight, std::string_view text) {
    return "<span class=\"badge " + std::string(weight) + "\">" + document::escapedHTML(text) + "</span>";
}

/// Begins a table that scrolls by itself, by keyboard too; `heads` are those of its columns.
void beginTable(std::string_view label, std::initializer_list<std::string_view> heads, const LineTaker& take);
void endTable(const LineTaker& take);

/// Between tags, with its own in front and behind: `element("p", "a < b")`.
inline std::string element(const std::string& tag, std::string_view text) {
    return "<" + tag + ">" + document::escapedHTML(text) + "</" + tag + ">";
}

}  // namespace quorin::page
