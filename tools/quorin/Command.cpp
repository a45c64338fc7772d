#include "Command.hpp"

#include "quorin/platform/json/UTF8.hpp"

#include <charconv>
#include <cstdint>

namespace quorin::tool {
namespace {

const CLI::Validator& accepting(bool (*accepts)(std::string_view), const std::string& otherwise) {
    const auto check = [accepts, otherwise](const std::string& given) {
        return accepts(given) ? std::string() : otherwise;
    };
    return *new CLI::Validator(check, "");
}

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(number) : std::nullopt;
}

bool isWhole(std::string_view text) { return numberIn<std::uint64_t>(text).has_value(); }

bool isTime(std::string_view text) {
    const auto number = numberIn<double>(text);
    return number && *number > 0 && *number <= 1e6;
}

}  // namespace


CLI::App& command(CLI::App& parent, const std::string& name, const std::string& purpose, const std::string& example) {
    CLI::App& made = *parent.add_subcommand(name, purpose);
    made.footer("Example: " + example + "\nThe options of every command: quorin --help");
    return made;
}

CLI::Option& optionalText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                          const std::string& meaning) {
    return *app.add_option_function<std::string>(
        name, [&target](const std::string& given) { target = given; }, meaning);
}

const CLI::Validator& text() {
    static const CLI::Validator& validator = accepting(json::isUTF8, "is not UTF-8 text");
    return validator;
}

const CLI::Validator& bytes() {
    static const CLI::Validator& validator = accepting(isWhole, "is not a number of bytes");
    return validator;
}

const CLI::Validator& seconds() {
    static const CLI::Validator& validator =
        accepting(isTime, "is not a number of seconds above 0 and up to 1000000");
    return validator;
}

}  // namespace quorin::tool
