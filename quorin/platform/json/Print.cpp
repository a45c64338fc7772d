#include "quorin/platform/json/Print.hpp"

#include "quorin/platform/json/Members.hpp"
#include "quorin/platform/json/UTF8.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace quorin::json {
namespace {

class Printer {
public:
    explicit Printer(Layout layout) : indented_(layout == Layout::indented) {}

    void value(const Node& node) {
        switch (node.kind) {
            case Kind::null: text_ += "null"; break;
            case Kind::boolean: text_ += node.boolean ? "true" : "false"; break;
            case Kind::integer: digits(node.integer); break;
            case Kind::unsignedInteger: digits(node.unsignedInteger); break;
            case Kind::real: real(node.real); break;
            case Kind::string: string(node.string()); break;
            case Kind::list: list(node); break;
            case Kind::object: object(node); break;
        }
    }

    std::string finish() { return std::move(text_); }

private:
    template <class Number>
    void digits(Number number) {
        std::array<char, 32> buffer;
        const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
        text_.append(buffer.data(), end);
    }

    void real(double number) {
        constexpr double exact = 9007199254740992.0;  // 2^53
        if (number == std::trunc(number) && std::fabs(number) < exact)
            digits(static_cast<Integer>(number));
        else
            digits(number);
    }

    void string(std::string_view value) {
        text_ += '"';
        std::string repaired;
        if (!isUTF8(value)) value = repaired = repairedUTF8(value);
        for (const char c : value) character(c);
        text_ += '"';
    }

    void character(char c) {
        constexpr std::string_view hex = "0123456789abcdef";
        switch (c) {
            case '"': text_ += "\\\""; break;
            case '\\': text_ += "\\\\"; break;
            case '\b': text_ += "\\b"; break;
            case '\f': text_ += "\\f"; break;
            case '\n': text_ += "\\n"; break;
            case '\r': text_ += "\\r"; break;
            case '\t': text_ += "\\t"; break;
            default:
                if (static_cast<unsigned char>(c) >= 0x20)
                    text_ += c;
                else
                    ((text_ += "\\u00") += hex[static_cast<unsigned char>(c) >> 4U]) += hex[c & 0xF];
        }
    }

    void list(const Node& node) {
        open('[');
        for (std::uint32_t i = 0; i < node.size; ++i) {
            separate(i);
            value(node.items[i]);
        }
        close(']', node.size);
    }

    void object(const Node& node) {
        const std::vector<std::uint32_t> order = byteOrder(node);
        open('{');
        for (std::uint32_t i = 0; i < node.size; ++i) {
            separate(i);
            string(node.name(order[i]).string());
            text_ += indented_ ? ": " : ":";
            value(node.value(order[i]));
        }
        close('}', node.size);
    }

    void open(char bracket) {
        text_ += bracket;
        ++level_;
    }

    void separate(std::uint32_t position) {
        if (position > 0) text_ += ',';
        newLine();
    }

    void close(char bracket, std::uint32_t size) {
        --level_;
        if (size > 0) newLine();
        text_ += bracket;
    }

    void newLine() {
        if (indented_) (text_ += '\n').append(2 * level_, ' ');
    }

    bool indented_;
    std::size_t level_ = 0;
    std::string text_;
};

}  // namespace

std::string print(const Value& value, Layout layout) {
    Printer printer(layout);
    printer.value(value.node());
    return printer.finish();
}

}  // namespace quorin::json
