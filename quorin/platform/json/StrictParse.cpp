#include "quorin/platform/json/StrictParse.hpp"

#include "quorin/platform/json/Builder.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/UTF8.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace quorin::json {
namespace {

/// Takes the parser's events. Each answers whether to go on.
class Events {
public:
    explicit Events(StrictResult& result) : result_(result) {}

    bool null() { return builder_.null(), true; }
    bool boolean(bool value) { return builder_.boolean(value), true; }
    bool number_integer(std::int64_t value) { return builder_.integer(value), true; }
    bool number_unsigned(std::uint64_t value) { return builder_.unsignedInteger(value), true; }
    bool number_float(double value, const std::string&) { return builder_.real(value), true; }
    bool string(const std::string& value) { return builder_.string(value), true; }
    bool binary(const std::vector<std::uint8_t>&) { return false; }
    bool key(const std::string& name) { return builder_.name(name), true; }
    bool start_object(std::size_t) { return start(); }
    bool start_array(std::size_t) { return start(); }
    bool end_object() { return builder_.endObject(ended()), true; }
    bool end_array() { return builder_.endList(ended()), true; }

    template <class Exception>
    bool parse_error(std::size_t read, const std::string& piece, const Exception& exception) {
        result_.offset = read == 0 ? 0 : read - 1;
        result_.message = wordsOf(exception.what(), piece);
        return false;
    }

    Value finish() { return builder_.finish(); }
    bool tooDeep() const { return begun_.size() == deepestNesting; }

private:
    bool start() {
        if (tooDeep()) return false;
        begun_.push_back(builder_.begin());
        return true;
    }

    std::size_t ended() {
        const std::size_t begun = begun_.back();
        begun_.pop_back();
        return begun;
    }

    /// The parser's words without its own account of the place, which the position repeats, and without the `piece` of
    /// the text that it read last, which nobody has checked.
    static std::string wordsOf(std::string_view what, std::string_view piece) {
        const auto place = what.find(" at line ");
        const auto begin = what.find(place == what.npos ? "] " : ": ", place == what.npos ? 0 : place);
        std::string words(begin == what.npos ? what : what.substr(begin + 2));
        const std::string_view before = words.starts_with("number overflow") ? " parsing '" : "; last read: '";
        const auto quoted = words.find(before);
        if (quoted != words.npos) words.erase(quoted, before.size() + piece.size() + 1);
        return words;
    }

    StrictResult& result_;
    Builder builder_;
    std::vector<std::size_t> begun_;
};

/// Where a list or object begins that stands too deep.
std::size_t offsetTooDeep(std::string_view text) {
    std::size_t depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString && c == '\\')
            ++i;
        else if (c == '"')
            inString = !inString;
        else if (!inString && (c == '[' || c == '{') && ++depth > deepestNesting)
            return i;
        else if (!inString && (c == ']' || c == '}'))
            --depth;
    }
    return text.size();
}

}  // namespace

StrictResult parseStrictly(std::string_view text) {
    StrictResult result;
    if (const auto nul = text.find('\0'); nul != text.npos) {
        result.offset = nul;
        result.message = "a NUL byte stands in the text";
        return result;
    }
    if (text.starts_with(byteOrderMark)) {  // which that parser would skip
        result.message = "a second byte order mark stands in the text";
        return result;
    }
    Events events(result);
    if (nlohmann::json::sax_parse(text.begin(), text.end(), &events)) {
        result.value = events.finish();
    } else if (result.message.empty()) {
        result.offset = offsetTooDeep(text);
        result.message = "lists and objects are nested deeper than " + std::to_string(deepestNesting) + " levels";
    }
    result.offset = std::min(result.offset, text.size());
    return result;
}

}  // namespace quorin::json
