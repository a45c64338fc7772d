#include "Command.hpp"

#include "quorin/platform/json/UTF8.hpp"

#include "Joined.hpp"
#include "tools/document/Nearest.hpp"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace quorin::tool {
namespace {

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(number) : std::nullopt;
}

/// The parser's own numbers are not asked for: it takes 010 for 8.
template <class Number>
CLI::Option& numberOption(CLI::App& app, const std::string& name, Number& target, const std::string& meaning,
                          bool (*accepts)(Number), const std::string& otherwise) {
    const auto check = [accepts, otherwise](const std::string& given) {
        const auto number = numberIn<Number>(given);
        return number && accepts(*number) ? std::string() : otherwise;
    };
    const auto take = [&target](const std::string& given) { target = *numberIn<Number>(given); };
    return *app.add_option_function<std::string>(name, take, meaning)->check(CLI::Validator(check, ""));
}

std::string refusalOf(const std::string& given, const std::vector<std::string>& names) {
    const std::string all = joined(names, ", ");
    const std::string near = document::nearest(given, {names.begin(), names.end()});
    return "must be one of " + all + (near == all ? "" : "; near it: " + near);
}

}  // namespace

CLI::App& command(CLI::App& parent, const std::string& name, const std::string& purpose, const std::string& example) {
    CLI::App& made = *parent.add_subcommand(name, purpose);
    made.footer("Example: " + example + "\nThe options of every command: quorin --help");
    return made;
}

std::vector<const CLI::App*> commandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

CLI::Option& optionalText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                          const std::string& meaning) {
    return *app.add_option_function<std::string>(
        name, [&target](const std::string& given) { target = given; }, meaning);
}

CLI::Option& repeatedText(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                          const std::string& meaning) {
    const auto take = [&target](const std::string& given) { target.push_back(given); };
    CLI::Option& option = *app.add_option_function<std::string>(name, take, meaning);
    option.multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->trigger_on_parse();
    return *option.type_name("TEXT")->check(text());
}

CLI::Option& texts(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                   const std::string& meaning) {
    // Without extra arguments, because the parser takes "[a,b]" apart where they are allowed; so it must wait for many,
    // and for so many that its help says "...".
    constexpr int many = CLI::detail::expected_max_vector_size;
    CLI::Option& option = *app.add_option(name, target, meaning);
    option.expected(many, many)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    return *option.allow_extra_args(false)->type_name("TEXT");
}

CLI::Option& flag(CLI::App& app, const std::string& name, bool& target, const std::string& meaning) {
    return *app.add_flag(name, target, meaning)->disable_flag_override();
}

CLI::Validator oneOf(const std::vector<std::string>& names) {
    const auto check = [names](const std::string& given) {
        const bool isOne = std::find(names.begin(), names.end(), given) != names.end();
        return isOne ? std::string() : refusalOf(given, names);
    };
    return {check, "{" + joined(names, ",") + "}"};
}

const CLI::Validator& text() {
    const auto check = [](const std::string& given) {
        return json::isUTF8(given) ? std::string() : std::string("must be UTF-8 text");
    };
    static const auto& validator = *new CLI::Validator(check, "");
    return validator;
}

CLI::Option& bytes(CLI::App& app, const std::string& name, std::size_t& target, const std::string& meaning) {
    return numberOption<std::size_t>(
        app, name, target, meaning, [](std::size_t) { return true; }, "must be a whole number of bytes");
}

CLI::Option& seconds(CLI::App& app, const std::string& name, double& target, const std::string& meaning) {
    return numberOption<double>(
        app, name, target, meaning, [](double time) { return time > 0 && time <= 1e6; },
        "must be a number of seconds above 0 and up to 1000000");
}

}  // namespace quorin::tool
