#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::json {

/// `text` without a byte order mark at its begin.
std::string_view withoutMark(std::string_view text);

/// The name that stands in quotes, its escapes decoded.
std::optional<std::string> nameIn(std::string_view quoted);

/// Goes over a text that is known to parse, for those who look at the text and not at its values.
class Scan {
protected:
    explicit Scan(std::string_view text) : text_(text) {}

    std::size_t at() const { return at_; }
    char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    void skipBlanks() {
        while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
    }
    void skipPlain() {
        while (at_ < text_.size() && !isBlank(text_[at_]) && !endsPlain(text_[at_])) ++at_;
    }

    std::string_view skipString() {
        const std::size_t begin = at_;
        at_ = endOfString(begin);
        return text_.substr(begin, at_ - begin);
    }

    /// A list or an object with all that is in it.
    void skipContainer() {
        std::size_t at = at_;
        std::ptrdiff_t depth = 0;
        do {
            const char c = text_[at];
            depth += c == '{' || c == '[' ? 1 : c == '}' || c == ']' ? -1 : 0;
            at = c == '"' ? endOfString(at) : at + 1;
        } while (depth > 0 && at < text_.size());
        at_ = at;
    }

    /// Goes into a list or an object. Whether it has an item; else its end is passed over.
    bool begins(char end) {
        ++at_;
        skipBlanks();
        if (peek() != end) return true;
        ++at_;
        return false;
    }

    /// The name of a member with its quotes; its value is next.
    std::string_view skipName() {
        skipBlanks();
        const std::string_view name = skipString();
        skipBlanks();
        ++at_;  // the colon
        return name;
    }

    /// Whether another item follows; the end of the list or object is passed over.
    bool more(char end) {
        skipBlanks();
        const char c = peek();
        if (c == ',' || c == end || c == '\0') ++at_;
        skipBlanks();
        return c != end && c != '\0' && peek() != '\0';
    }

private:
    static bool isBlank(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }
    static bool endsPlain(char c) { return c == ',' || c == ']' || c == '}'; }

    /// Behind the quote that closes the string at `begin`: the first that is not escaped.
    std::size_t endOfString(std::size_t begin) const {
        for (std::size_t at = begin;;) {
            at = text_.find('"', at + 1);
            if (at == text_.npos) return text_.size();
            std::size_t first = at;
            while (first > begin + 1 && text_[first - 1] == '\\') --first;
            const bool isEscaped = (at - first) % 2 == 1;
            if (!isEscaped) return at + 1;
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace quorin::json
