#pragma once

#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/json/Value.hpp"

#include "Failure.hpp"

#include <string>
#include <string_view>

/// What the program writes: results to standard output, everything else to standard error.
namespace quorin::tool {

enum class ErrorForm { text, json };

class Output {
public:
    json::Layout layout = json::Layout::indented;
    ErrorForm errorForm = ErrorForm::text;

    /// The canonical text of `value` and a newline.
    void json(const json::Value& value);

    /// The same on one line, which the reader of the output has at once.
    void record(const json::Value& value);

    /// The text of a result as it stands.
    void text(std::string_view text);

    /// `text` and a newline, without control characters.
    void line(std::string_view text);

    /// The text of a result and a newline, byte for byte but on a terminal.
    void result(const std::string& text);

    void warn(std::string_view message);

    /// The one line that ends a failed command.
    void fail(const Failure& failure) const;

    /// Why some of the result did not reach standard output, as `errno` says it; 0: all did.
    int flush();

private:
    void print(const json::Value& value, json::Layout as);
    void printSafely(const std::string& result);

    int error_ = 0;
};

/// `text` in well-formed UTF-8, each control character of it as "\uxxxx".
std::string withoutControls(std::string_view text);

}  // namespace quorin::tool
