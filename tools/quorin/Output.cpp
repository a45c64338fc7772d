#include "Output.hpp"

#include "quorin/platform/json/UTF8.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

namespace quorin::tool {
namespace {

/// A character, and the bytes that it takes; none where `size` is 0.
struct Character {
    unsigned code = 0;
    std::size_t size = 0;
};

/// The character at the front of UTF-8 text, if it takes up to three bytes.
Character characterAt(std::string_view text) {
    const auto bits = [&](std::size_t i) { return static_cast<unsigned char>(text[i]) & 0x3FU; };
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) return {first, 1};
    if (first >= 0xC0 && first < 0xE0 && text.size() > 1) return {(first & 0x1FU) << 6U | bits(1), 2};
    if (first >= 0xE0 && first < 0xF0 && text.size() > 2) return {(first & 0xFU) << 12U | bits(1) << 6U | bits(2), 3};
    return {};
}

/// Whether a terminal obeys the character and does not show it: C0, DEL and C1; those that end a line; and those that
/// turn the direction of what follows, and so let a text stand there that is another.
bool isControl(unsigned code) {
    constexpr std::array<std::array<unsigned, 2>, 4> ranges{
        {{0, 0x1F}, {0x7F, 0x9F}, {0x2028, 0x202E}, {0x2066, 0x2069}}};
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const auto& range) { return code >= range[0] && code <= range[1]; });
}

/// Escapes the control characters that `keep` does not name.
std::string escaped(std::string_view text, std::string_view keep) {
    constexpr std::string_view hex = "0123456789abcdef";
    std::string safe;
    while (!text.empty()) {
        const auto [code, size] = characterAt(text);
        const std::size_t taken = std::max<std::size_t>(size, 1);
        if (size == 0 || !isControl(code) || keep.find(text[0]) != keep.npos) {
            safe += text.substr(0, taken);
        } else {
            safe += "\\u";
            for (const unsigned shift : {12U, 8U, 4U, 0U}) safe += hex[code >> shift & 0xFU];
        }
        text.remove_prefix(taken);
    }
    return safe;
}

void writeError(const std::string& line) { std::fputs(("quorin: " + line + "\n").c_str(), stderr); }

}  // namespace

std::string withoutControls(std::string_view text) {
    return escaped(json::isUTF8(text) ? std::string(text) : json::repairedUTF8(text), "");
}

void Output::json(const json::Value& value) { print(value, layout); }

void Output::record(const json::Value& value) {
    print(value, json::Layout::compact);
    flush();
}

void Output::print(const json::Value& value, json::Layout as) { printSafely(json::print(value, as) + "\n"); }

void Output::result(const std::string& text) { printSafely(text + "\n"); }

/// A terminal gets no control characters.
void Output::printSafely(const std::string& result) { text(isatty(STDOUT_FILENO) ? escaped(result, "\n") : result); }

void Output::text(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) error_ = errno;
}

void Output::line(std::string_view text) { this->text(withoutControls(text) + "\n"); }

void Output::warn(std::string_view message) { writeError("warning: " + withoutControls(message)); }

void Output::fail(const Failure& failure) const {
    if (errorForm == ErrorForm::text) return writeError(withoutControls(failure.message));
    std::fputs((escaped(json::print(failure.record.value()), "") + "\n").c_str(), stderr);
}

int Output::flush() {
    if (std::fflush(stdout) != 0) error_ = errno;
    return error_;
}

}  // namespace quorin::tool
