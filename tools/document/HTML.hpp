#pragma once

#include <string>
#include <string_view>

namespace quorin::document {

/// `text` so that it stands for itself in HTML, between tags and in quoted attributes.
std::string escapedHTML(std::string_view text);

}  // namespace quorin::document
