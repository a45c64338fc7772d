#include "Command.hpp"
#include "Joined.hpp"

#include <string>
#include <vector>

namespace quorin::tool {
namespace {

std::vector<std::string> flagsOf(const CLI::App& app) {
    std::vector<std::string> flags;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) flags.push_back("--" + name);
    }
    return flags;
}

/// One row a command: the words that may follow it.
struct Row {
    std::string parent;
    std::string path;
    std::string words;

    std::string name() const { return path.substr(parent.empty() ? 0 : parent.size() + 1); }
};

void addRows(std::vector<Row>& rows, const CLI::App& app, const Row& row, const std::vector<std::string>& global) {
    std::vector<std::string> words;
    for (const CLI::App* const inner : commandsOf(app)) words.push_back(inner->get_name());
    for (const std::string& own : flagsOf(app)) words.push_back(own);
    if (!row.path.empty()) words.insert(words.end(), global.begin(), global.end());
    rows.push_back({row.parent, row.path, joined(words, " ")});
    for (const CLI::App* const inner : commandsOf(app)) {
        const std::string& name = inner->get_name();
        addRows(rows, *inner, {row.path, row.path.empty() ? name : row.path + " " + name, ""}, global);
    }
}

/// The pattern of the words that name a command, each after the path of the one around it.
std::string commandPattern(const std::vector<Row>& rows) {
    std::vector<std::string> patterns;
    for (const Row& row : rows) {
        if (!row.path.empty()) patterns.push_back("'" + row.parent + ":" + row.name() + "'");
    }
    return joined(patterns, "|");
}

std::string casesOf(const std::vector<Row>& rows) {
    std::string cases;
    for (const Row& row : rows) cases += "        '" + row.path + "') choices='" + row.words + "' ;;\n";
    return cases;
}

std::string forBash(const std::vector<Row>& rows) {
    return "# Completion of quorin for bash.\n"
           "_quorin() {\n"
           "    local word path='' choices='' current=${COMP_WORDS[COMP_CWORD]}\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        case $path:$word in\n"
           "        "
           + commandPattern(rows)
           + ") path=${path:+$path }$word ;;\n"
           "        esac\n"
           "    done\n"
           "    case $path in\n"
           + casesOf(rows)
           + "    esac\n"
             "    mapfile -t COMPREPLY < <(compgen -W \"$choices\" -- \"$current\")\n"
             "}\n"
             "complete -o default -F _quorin quorin\n";
}

std::string forZsh(const std::vector<Row>& rows) {
    return "#compdef quorin\n"
           "_quorin() {\n"
           "    local word command_path='' choices=''\n"
           "    for word in ${words[2,CURRENT-1]}; do\n"
           "        case $command_path:$word in\n"
           "        "
           + commandPattern(rows)
           + ") command_path=${command_path:+$command_path }$word ;;\n"
           "        esac\n"
           "    done\n"
           "    case $command_path in\n"
           + casesOf(rows)
           + "    esac\n"
             "    compadd -- ${=choices}\n"
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
    completion.add_option("SHELL", *shell, "The shell")->required()->check(oneOf({"bash", "zsh", "fish"}));
    completion.callback([&program, shell, &chosen] {
        chosen = [&program, shell](Session& session) -> Outcome {
            std::vector<Row> rows;
            addRows(rows, program, {}, flagsOf(program));
            session.output.text(*shell == "bash" ? forBash(rows) : *shell == "zsh" ? forZsh(rows) : forFish(rows));
            return {};
        };
    });
}

}  // namespace quorin::tool
