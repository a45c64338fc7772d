#include "tests/platform/json/AnyDocument.hpp"

#include "quorin/platform/json/Parse.hpp"

#include <array>
#include <string_view>

namespace quorin::json {
namespace {

/// Writes a text front to back.
class Writing {
public:
    explicit Writing(Random& random) : random_(random), blanks_(oneIn(2)) {}

    std::string document() {
        if (oneIn(16)) text_ += "\xEF\xBB\xBF";
        blank();
        if (oneIn(128))
            deep();
        else if (oneIn(16))
            value(0);
        else
            object(1 + upTo(1), [&] { member(any(brands), [&] { brand(); }); });
        blank();
        return std::move(text_);
    }

private:
    static constexpr std::array<std::string_view, 5> brands{"orvel", "voss", "pellow", "no brand", "webservices"};
    static constexpr std::array<std::string_view, 9> sections{
        "webservices", "features", "analytics", "layouts", "init", "videoPlayer", "common", "application", "profile"};
    static constexpr std::array<std::string_view, 9> names{"url", "value", "enabled", "timeout", "limit",
                                                           "",    "id",    "title",   "freeTime"};
    static constexpr std::array<std::string_view, 25> numbers{"0",
                                                              "-0",
                                                              "1",
                                                              "-1",
                                                              "0.0",
                                                              "-0.0",
                                                              "9007199254740993",
                                                              "9223372036854775807",
                                                              "9223372036854775808",
                                                              "-9223372036854775808",
                                                              "-9223372036854775809",
                                                              "18446744073709551615",
                                                              "18446744073709551616",
                                                              "1.7976931348623157e308",
                                                              "2.2250738585072014e-308",
                                                              "2.2250738585072011e-308",
                                                              "5e-324",
                                                              "2e-324",
                                                              "1e-400",
                                                              "0e999999999999999999999",
                                                              "9007199254740993.0",
                                                              "1E+2",
                                                              "1e22",
                                                              "1e23",
                                                              "123456789012345678901234567890"};
    static constexpr std::array<std::string_view, 24> pieces{"video",
                                                             "start ",
                                                             "https://h.example/",
                                                             "a",
                                                             "Z",
                                                             "0",
                                                             "~",
                                                             "[",
                                                             "}",
                                                             ",",
                                                             ":",
                                                             "\\\"",
                                                             "\\\\",
                                                             "\\/",
                                                             "\\n\\t",
                                                             "\\b\\f\\r",
                                                             "\\u0000",
                                                             "\\u00e9",
                                                             "\\ud83d\\ude00",
                                                             "\x7F",
                                                             "\xC3\xA9",
                                                             "\xE2\x82\xAC",
                                                             "\xEF\xBF\xBD",
                                                             "\xF0\x9F\x98\x80"};

    std::size_t upTo(std::size_t most) { return random_() % (most + 1); }
    bool oneIn(std::size_t times) { return random_() % times == 0; }

    template <std::size_t size>
    std::string_view any(const std::array<std::string_view, size>& of) {
        return of[random_() % size];
    }

    void blank() {
        for (std::size_t i = blanks_ ? upTo(2) : 0; i > 0; --i) text_ += " \n\r\t"[upTo(3)];
    }

    /// `count` items between two brackets.
    template <class Item>
    void items(char open, std::size_t count, char close, const Item& item) {
        (text_ += open), blank();
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0) (text_ += ','), blank();
            item(), blank();
        }
        text_ += close;
    }

    template <class Item>
    void object(std::size_t count, const Item& item) {
        items('{', count, '}', item);
    }

    template <class Fill>
    void member(std::string_view name, const Fill& fill) {
        ((text_ += '"') += name) += '"';
        blank(), text_ += ':', blank();
        fill();
    }

    void brand() {
        object(1 + upTo(1), [&] { member(any(sections), [&] { section(); }); });
    }

    /// Of a few members, or of enough to be indexed.
    void section() {
        const std::size_t count = oneIn(24) ? 16 + upTo(8) : upTo(3);
        std::size_t number = 0;
        object(count, [&] {
            const std::string name = oneIn(8) ? std::string(any(names)) : "entry" + std::to_string(number++);
            member(name, [&] { value(3); });
        });
    }

    void value(std::size_t levels) {
        switch (levels > 0 ? upTo(7) : 2 + upTo(5)) {
            case 0: return object(upTo(4), [&] { member(any(names), [&] { value(levels - 1); }); });
            case 1: return items('[', upTo(4), ']', [&] { value(levels - 1); });
            case 2: text_ += any(std::array<std::string_view, 3>{"null", "true", "false"}); return;
            case 3:
            case 4: return number();
            default: return string();
        }
    }

    void string() {
        text_ += '"';
        for (std::size_t i = oneIn(32) ? 40 : upTo(4); i > 0; --i) text_ += any(pieces);
        text_ += '"';
    }

    void digits(std::size_t count) {
        for (; count > 0; --count) text_ += static_cast<char>('0' + upTo(9));
    }

    void number() {
        if (oneIn(4)) return void(text_ += any(numbers));
        if (oneIn(2)) text_ += '-';
        text_ += static_cast<char>('1' + upTo(8));
        digits(oneIn(4) ? upTo(18) : upTo(4));
        if (oneIn(3)) (text_ += '.'), digits(1 + upTo(18));
        if (oneIn(4)) (text_ += oneIn(2) ? 'e' : 'E') += std::to_string(static_cast<int>(upTo(640)) - 360);
    }

    /// Lists and objects inside each other down to the deepest, or nearly so.
    void deep() {
        const std::size_t levels = deepestNesting - upTo(2);
        std::string ends;
        for (std::size_t i = 0; i < levels; ++i) {
            const bool isObject = oneIn(2);
            text_ += isObject ? "{\"a\":" : "[";
            ends.insert(0, isObject ? "}" : "]");
        }
        value(0);
        text_ += ends;
    }

    Random& random_;
    bool blanks_;
    std::string text_;
};

}  // namespace

std::string anyDocument(Random& random) { return Writing(random).document(); }

}  // namespace quorin::json
