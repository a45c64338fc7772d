#pragma once

#include "Kinds.hpp"

#include <string>

namespace quorin::document {

/// What is told of a kind, as a section of Markdown.
std::string pageOf(const Kind& kind);

/// All of them as one document: docs/findings.md.
std::string pages();

}  // namespace quorin::document
