#pragma once

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/StrictParse.hpp"
#include "quorin/platform/json/UTF8.hpp"

#include "tests/support/OtherParser.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace quorin::json {

/// One text before the parsers; each claim is empty when it holds, or says what does not.
class ParserComparison {
public:
    explicit ParserComparison(const std::string& text) : text_(text), expected_(readByOther(text)) {}

    bool isRead() const { return expected_.has_value(); }

    std::string outcome() const {
        const ParseResult result = parse(text_);
        std::string words = ofTree(result.value(), "as it is");
        if (words.empty()) words = ofPadded();
        if (words.empty()) words = ofStrict(result);
        const ParseError* const error = result.error();
        if (words.empty() && error) words = ofError(*error);
        return words;
    }

private:
    std::string ofTree(const Value* value, const std::string& how) const {
        if (!value != !expected_) return how + (value ? ", only ours reads it" : ", only the other reads it");
        return !value || sameTree(value->node(), *expected_) ? "" : how + ", the trees differ";
    }

    /// What stands behind the text, and may be read, must not count.
    std::string ofPadded() const {
        std::string padded = text_;
        while (padded.size() < text_.size() + parsePadding) padded += "9\"]}, \xFF"[padded.size() % 7];
        return ofTree(parse(std::string_view(padded).substr(0, text_.size()), parsePadding).value(), "padded");
    }

    /// The second parser alone agrees, and its place is the one that is told.
    std::string ofStrict(const ParseResult& result) const {
        const std::size_t mark = text_.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
        const StrictResult strict = parseStrictly(std::string_view(text_).substr(mark));
        std::string words = ofTree(strict.value ? &*strict.value : nullptr, "strictly");
        const ParseError* const error = result.error();
        if (words.empty() && error && strict.offset + mark != error->offset) words = "two places of one error";
        return words;
    }

    /// The place lies in the text, and nothing behind it counts.
    std::string ofError(const ParseError& error) const {
        if (error.offset > text_.size()) return "the error lies behind the text";
        if (error.position != positionOf(text_, error.offset)) return "line and column are another place";
        if (error.message.empty()) return "the error has no words";
        if (text_.find('\0') != text_.npos) return text_[error.offset] == '\0' ? "" : "the error is not at the NUL";
        if (std::string_view(text_).substr(error.offset).starts_with(byteOrderMark)) return "";
        const ParseResult front = parse(std::string_view(text_).substr(0, error.offset + 1));
        const ParseError* const inFront = front.error();
        return inFront && inFront->offset == error.offset ? "" : "the place depends on what follows";
    }

    const std::string& text_;
    std::optional<OtherTree> expected_;
};

}  // namespace quorin::json
