#include "Command.hpp"

#include <string>
#include <vector>

namespace quorin::tool {
namespace {

std::string joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) (line += line.empty() ? "" : " ") += word;
    return line;
}

std::vector<std::string> flagsOf(const CLI::App& app) {
    std::vector<std::string> flags;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) flags.push_back("--" + name);
    }
    return flags;
}

std::vector<std::string> commandsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* const inner : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(inner->get_name());
    return names;
}

/// One row a command: the words that may follow it.
struct Row {
    std::string path;
    std::string words;
};

void addRows(std::vector<Row>& rows, const CLI::App& app, const std::string& path, const std::string& global) {
    const std::string own = joined(commandsOf(app));
    rows.push_back({path, own + (own.empty() ? "" : " ") + joined(flagsOf(app)) + (path.empty() ? "" : " " + global)});
    for (const CLI::App* const inner : app.get_subcommands([](const CLI::App*) { return true; }))
        addRows(rows, *inner, path.empty() ? inner->get_name() : path + " " + inner->get_name(), global);
}

std::string casesOf(const std::vector<Row>& rows) {
    std::string cases;
    for (const Row& row : rows) cases += "        '" + row.path + "') words='" + row.words + "' ;;\n";
    return cases;
}

std::string forBash(const std::vector<Row>& rows) {
    return "# Completion of quorin for bash.\n"
           "_quorin() {\n"
           "    local word path='' words='' current=${COMP_WORDS[COMP_CWORD]}\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        case $path:$word in\n"
           "        :[a-z]*|identity:[a-z]*) path=${path:+$path }$word ;;\n"
           "        esac\n"
           "    done\n"
           "    case $path in\n"
           + casesOf(rows)
           + "    esac\n"
             "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
             "}\n"
             "complete -o default -F _quorin quorin\n";
}

std::string forZsh(const std::vector<Row>& rows) {
    return "#compdef quorin\n"
           "_quorin() {\n"
           "    local word command_path='' words_here=''\n"
           "    for word in ${words[2,CURRENT-1]}; do\n"
           "        case $command_path:$word in\n"
           "        :[a-z]*|identity:[a-z]*) command_path=${command_path:+$command_path }$word ;;\n"
           "        esac\n"
           "    done\n"
           "    local words\n"
           "    case $command_path in\n"
           + casesOf(rows)
           + "    esac\n"
             "    compadd -- ${=words}\n"
             "    _files\n"
             "}\n"
             "compdef _quorin quorin\n";
}

std::string forFish(const std::vector<Row>& rows) {
    std::string lines = "# Completion of quorin for fish.\n";
    for (const Row& row : rows) {
        std::string condition = "__fish_use_subcommand";
        std::string word;
        if (!row.path.empty()) {
            condition.clear();
            for (std::size_t at = 0; at < row.path.size(); at += word.size() + 1) {
                word = row.path.substr(at, row.path.find(' ', at) - at);
                condition += (condition.empty() ? "" : "; and ") + ("__fish_seen_subcommand_from " + word);
            }
        }
        lines += "complete -c quorin -n '" + condition + "' -a '" + row.words + "'\n";
    }
    return lines;
}

}  // namespace

void addCompletion(CLI::App& program, Action& chosen) {
    CLI::App& completion = command(program, "completion", "Print the completion script of a shell",
                                   "quorin completion bash > /etc/bash_completion.d/quorin");
    const auto shell = std::make_shared<std::string>();
    completion.add_option("SHELL", *shell, "The shell")->required()->check(CLI::IsMember({"bash", "zsh", "fish"}));
    completion.callback([&program, shell, &chosen] {
        chosen = [&program, shell](Session& session) -> Outcome {
            std::vector<Row> rows;
            addRows(rows, program, "", joined(flagsOf(program)));
            session.output.text(*shell == "bash" ? forBash(rows) : *shell == "zsh" ? forZsh(rows) : forFish(rows));
            return {};
        };
    });
}

}  // namespace quorin::tool
