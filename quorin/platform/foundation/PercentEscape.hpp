#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quorin::foundation {

/// The characters that are escaped: some of ASCII, and all beyond it.
class EscapeSet {
public:
    /// Those of `members`, which are ASCII; every other ASCII character stays, control characters too.
    static constexpr EscapeSet of(std::string_view members) { return EscapeSet(members, true); }

    /// All of ASCII but those of `kept`.
    static constexpr EscapeSet allBut(std::string_view kept) { return EscapeSet(kept, false); }

    /// What stands for a byte: itself or "%" and two digits.
    struct Form {
        std::array<char, 3> text{};
        unsigned char size = 1;
    };
    /// The form of a byte.
    constexpr const Form& operator[](unsigned char byte) const { return forms_[byte]; }

private:
    constexpr EscapeSet(std::string_view named, bool areEscaped) {
        for (std::size_t byte = 0; byte < forms_.size(); ++byte) {
            const bool isNamed = named.find(static_cast<char>(byte)) != named.npos;
            forms_[byte] = byte > 0x7F || isNamed == areEscaped ? escaped(byte) : Form{{static_cast<char>(byte)}, 1};
        }
    }

    static constexpr Form escaped(std::size_t byte) {
        constexpr std::string_view hex = "0123456789ABCDEF";
        return {{'%', hex[byte / 16], hex[byte % 16]}, 3};
    }

    std::array<Form, 256> forms_{};
};

/// Adds `text` to the end of `target`, which it must not be part of, with "%" and two upper-case hexadecimal digits in
/// place of each byte of the characters in `set` (RFC 3986 section 2.1). False, and nothing is added, where the text is
/// not UTF-8.
bool appendPercentEscaped(std::string& target, std::string_view text, const EscapeSet& set);

}  // namespace quorin::foundation
