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

    void skipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }
    void skipPlain() { at_ = std::min(text_.find_first_of(",]} \t\r\n", at_), text_.size()); }

    std::string_view skipString() {
        const std::size_t begin = at_++;
        while (at_ < text_.size() && text_[at_] != '"') at_ += text_[at_] == '\\' ? 2 : 1;
        at_ = std::min(at_ + 1, text_.size());
        return text_.substr(begin, at_ - begin);
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
    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace quorin::json
