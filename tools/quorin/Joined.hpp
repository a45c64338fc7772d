#pragma once

#include <string>
#include <string_view>

namespace quorin::tool {

/// The texts with `separator` between them.
template <class Texts>
std::string joined(const Texts& texts, std::string_view separator) {
    std::string line;
    for (const auto& text : texts) (line += line.empty() ? "" : separator) += text;
    return line;
}

}  // namespace quorin::tool
