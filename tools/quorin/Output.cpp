#include "Output.hpp"

#include "quorin/platform/json/UTF8.hpp"

#include <unistd.h>

#include <cstdio>

namespace quorin::tool {
namespace {

/// The control character at the front of `text`, and its bytes: C0 and DEL in one, C1 in two (0xC2 0x80 to 0x9F).
std::size_t controlAt(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x20 || byte(0) == 0x7F) return 1;
    return byte(0) == 0xC2 && text.size() > 1 && byte(1) < 0xA0 ? 2 : 0;
}

/// Escapes the control characters that `keep` does not name.
std::string escaped(std::string_view text, std::string_view keep) {
    constexpr std::string_view hex = "0123456789abcdef";
    std::string safe;
    while (!text.empty()) {
        std::size_t size = controlAt(text);
        if (size == 0 || keep.find(text[0]) != keep.npos)
            safe += text.substr(0, size = 1);
        else {
            const auto code = static_cast<unsigned char>(text[size - 1]);
            ((safe += "\\u00") += hex[code >> 4U]) += hex[code & 0xFU];
        }
        text.remove_prefix(size);
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
    written_ = flush();
}

void Output::print(const json::Value& value, json::Layout as) { printSafely(json::print(value, as) + "\n"); }

void Output::result(const std::string& text) { printSafely(text + "\n"); }

/// A terminal gets no control characters.
void Output::printSafely(const std::string& result) { text(isatty(STDOUT_FILENO) ? escaped(result, "\n") : result); }

void Output::text(std::string_view text) {
    written_ = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && written_;
}

void Output::line(std::string_view text) { this->text(withoutControls(text) + "\n"); }

void Output::warn(std::string_view message) { writeError("warning: " + withoutControls(message)); }

void Output::fail(const Failure& failure) const {
    if (errorForm == ErrorForm::text) return writeError(withoutControls(failure.message));
    std::fputs((escaped(json::print(failure.record.value()), "") + "\n").c_str(), stderr);
}

bool Output::flush() const { return std::fflush(stdout) == 0 && written_; }

}  // namespace quorin::tool
