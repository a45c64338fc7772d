#include "Arguments.hpp"

#include "Command.hpp"
#include "Joined.hpp"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace quorin::tool {
namespace {

const CLI::App* commandNamed(const CLI::App& app, std::string_view name) {
    const auto all = commandsOf(app);
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const CLI::App* inner) { return inner->get_name() == name; });
    return found == all.end() ? nullptr : *found;
}

/// The parser takes the empty text of `--name=` for none, and that of `--name ''` for what it is.
std::vector<std::string> separated(std::vector<std::string> words) {
    for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
        const bool endsEmpty = words[i].starts_with("--") && words[i].find('=') == words[i].size() - 1;
        if (!endsEmpty) continue;
        words[i].pop_back();
        words.insert(words.begin() + static_cast<std::ptrdiff_t>(i) + 1, "");
    }
    return words;
}

/// The innermost command that was given, or the program.
const CLI::App& given(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app : given(*chosen.front());
}

std::string namesOf(const std::vector<const CLI::App*>& commands) {
    std::vector<std::string> names;
    names.reserve(commands.size());
    for (const CLI::App* const command : commands) names.push_back(command->get_name());
    return joined(names, ", ");
}

/// `--token=SECRET` is shown as `--token`, and `-tSECRET` as `-t`.
std::string optionIn(const std::string& word) {
    return word.starts_with("--") ? word.substr(0, word.find('=')) : word.substr(0, 2);
}

std::string whatIsUnexpected(const CLI::App& program) {
    const auto words = program.remaining(true);
    const auto isOption = [](const std::string& word) { return word.size() > 1 && word[0] == '-' && word != "--"; };
    if (const auto option = std::find_if(words.begin(), words.end(), isOption); option != words.end())
        return "there is no option " + optionIn(*option) + " here; a command's own options stand after it";
    const auto commands = commandsOf(given(program));
    if (commands.empty()) return "there is an argument too many; take it away, or quote an argument with blanks";
    return "there is no such command; name one of " + namesOf(commands);
}

/// The parser says "--brand: 1 required TEXT missing", or "compact was given a disallowed flag override".
std::string whatIsWrongWithTheValue(const std::string& words) {
    const auto colon = words.find(':');
    if (colon != words.npos) return words.substr(0, colon) + " needs a value; give it after the option";
    return "--" + words.substr(0, words.find(' ')) + " takes no value; leave it out";
}

}  // namespace

std::vector<std::string> argumentsOf(std::span<const char* const> given, const CLI::App& program) {
    std::vector<std::string> words = separated({given.begin(), given.end()});
    const CLI::App* command = &program;
    auto word = words.begin();
    for (; word != words.end() && *word != "--"; ++word) {
        if (const auto* inner = commandNamed(*command, *word)) command = inner;
    }
    for (; words.end() - word > 1 && (command = commandNamed(*command, word[1])); ++word) std::swap(word[0], word[1]);
    return words;
}

bool wantsJSONErrors(const std::vector<std::string>& words) {
    constexpr std::string_view option = "--errors";
    const char* const variable = std::getenv("QUORIN_ERRORS");
    std::string_view form = variable ? variable : "";
    for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
        const std::string_view word = words[i];
        if (word == option && i + 1 < words.size())
            form = words[i + 1];
        else if (word.starts_with(option) && word.substr(option.size()).starts_with('='))
            form = word.substr(option.size() + 1);
    }
    return form == "json";
}

std::string usageMessage(const CLI::ParseError& error, const CLI::App& program) {
    const auto is = [&](CLI::ExitCodes code) { return error.get_exit_code() == static_cast<int>(code); };
    const bool isMissing = is(CLI::ExitCodes::RequiredError);
    const auto commands = commandsOf(given(program));
    const bool lacksCommand = isMissing && !commands.empty();
    if (lacksCommand && program.remaining(true).empty()) return "give a command: " + namesOf(commands);
    if (lacksCommand || is(CLI::ExitCodes::ExtrasError)) return whatIsUnexpected(program);
    std::string words = error.what();
    if (isMissing || is(CLI::ExitCodes::RequiresError)) return words + "; give it";
    if (is(CLI::ExitCodes::ExcludesError)) return words + "; leave it out";
    if (is(CLI::ExitCodes::ArgumentMismatch)) return whatIsWrongWithTheValue(words);
    if (is(CLI::ExitCodes::ConversionError)) return "an option that is on or off must be true or false";
    return words;
}

}  // namespace quorin::tool
