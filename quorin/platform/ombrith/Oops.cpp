#include "quorin/platform/ombrith/Oops.hpp"

#include <algorithm>

namespace quorin {

std::string Oops::description() const {
    std::string text = InstrumentationCodes::Component::nameOf(component) + ": "
                       + InstrumentationCodes::Element::nameOf(element) + ": "
                       + InstrumentationCodes::ErrorCode::nameOf(errorCode);
    if (message) text += ": " + *message;
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

}  // namespace quorin
