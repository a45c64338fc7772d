#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What the fuzz targets share.
namespace quorin::fuzz {

/// Ends the process, which the fuzzer takes for a find, where `claim` does not hold.
inline void require(bool holds, const char* claim) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", claim);
    std::abort();
}

inline std::string_view textOf(const std::uint8_t* bytes, std::size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

/// C0 and DEL.
inline bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

inline bool hasControl(std::string_view text) { return std::any_of(text.begin(), text.end(), isControl); }

/// U+0080 to U+009F in UTF-8, which a terminal obeys as it does C0.
inline bool hasC1(std::string_view text) {
    for (auto at = text.find('\xC2'); at != text.npos; at = text.find('\xC2', at + 1))
        if (at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) < 0xA0) return true;
    return false;
}

/// ASCII letters in lower case.
inline std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return lower;
}

/// The texts of an input, one a line, so that a corpus can be read and written by hand. In a line "\n" and "\r" stand
/// for what ends one; all other bytes are what they are.
class Lines {
public:
    explicit Lines(std::string_view input) : rest_(input) {}

    bool isAtEnd() const { return rest_.empty(); }

    /// Empty behind the end.
    std::string next() {
        const std::string_view line = rest_.substr(0, rest_.find('\n'));
        rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
        std::string text;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const char after = line[i] == '\\' && i + 1 < line.size() ? line[i + 1] : ' ';
            const bool isEscape = after == 'n' || after == 'r';
            text += !isEscape ? line[i] : after == 'n' ? '\n' : '\r';
            i += isEscape ? 1 : 0;
        }
        return text;
    }

private:
    std::string_view rest_;
};

/// A text cut at the first of a character; the second half is empty where there is none.
struct Halves {
    std::string_view first{};
    std::string_view second{};

    Halves(std::string_view text, char at)
        : first(text.substr(0, text.find(at))), second(text.substr(std::min(first.size() + 1, text.size()))) {}
};

}  // namespace quorin::fuzz
