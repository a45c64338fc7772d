#include "quorin/platform/skell/ResponseHead.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

#include <algorithm>
#include <charconv>

namespace quorin::skell {
namespace {

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// What else ends a line for some reader becomes a blank (RFC 9110 section 5.5).
std::string fieldText(std::string_view text) {
    std::string clean(text);
    std::replace_if(clean.begin(), clean.end(), [](char c) { return c == '\r' || c == '\0'; }, ' ');
    return std::string(trimmed(clean));
}

template <class Number>
std::optional<Number> number(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

bool ResponseHead::take(std::string_view line) {
    bytes_ += line.size();
    if (bytes_ > maxBytes) return false;
    if (isComplete_) return true;
    if (trimmed(line).empty()) {
        isComplete_ = status_ >= 200;
    } else if (line.starts_with("HTTP/")) {
        takeStatusLine(line);
    } else {
        takeField(line);
    }
    return true;
}

void ResponseHead::takeStatusLine(std::string_view line) {
    fields_.clear();
    const auto blank = line.find(' ');
    const auto code = blank == line.npos ? std::string_view() : line.substr(blank + 1, 3);
    status_ = number<int>(trimmed(code)).value_or(0);
}

/// A line that begins with a blank goes on with the field before (RFC 9112 section 5.2).
void ResponseHead::takeField(std::string_view line) {
    const auto colon = line.find(':');
    if (line.front() == ' ' || line.front() == '\t') {
        if (!fields_.empty()) fields_.back().value.append(" ").append(fieldText(line));
    } else if (colon != line.npos) {
        fields_.push_back({fieldText(line.substr(0, colon)), fieldText(line.substr(colon + 1))});
    }
}

bool ResponseHead::hasOneLength() const {
    std::optional<std::string_view> length;
    for (const HeaderField& field : fields_) {
        if (rawvalues::sameFolded(field.name, "Transfer-Encoding")) return true;
        if (!rawvalues::sameFolded(field.name, "Content-Length")) continue;
        if (length && *length != field.value) return false;
        length = field.value;
    }
    return true;
}

std::optional<std::size_t> ResponseHead::contentLength() const {
    for (const HeaderField& field : fields_) {
        if (rawvalues::sameFolded(field.name, "Content-Length")) return number<std::size_t>(field.value);
    }
    return std::nullopt;
}

std::string ResponseHead::contentEncoding() const {
    std::string encodings;
    for (const HeaderField& field : fields_) {
        if (!rawvalues::sameFolded(field.name, "Content-Encoding") || field.value.empty()) continue;
        if (rawvalues::sameFolded(field.value, "identity")) continue;
        encodings.append(encodings.empty() ? "" : ", ").append(field.value);
    }
    return encodings;
}

}  // namespace quorin::skell
