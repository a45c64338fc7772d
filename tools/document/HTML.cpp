#include "HTML.hpp"

namespace quorin::document {
namespace {

std::string_view entityOf(char c) {
    switch (c) {
        case '&': return "&amp;";
        case '<': return "&lt;";
        case '>': return "&gt;";
        case '"': return "&quot;";
        case '\'': return "&#39;";
        default: return {};
    }
}

}  // namespace

std::string escapedHTML(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        const std::string_view entity = entityOf(c);
        entity.empty() ? escaped += c : escaped += entity;
    }
    return escaped;
}

}  // namespace quorin::document
