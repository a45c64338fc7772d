#include "Command.hpp"
#include "Joined.hpp"

#include <algorithm>
#include <string>
#include <vector>

namespace quorin::tool {
namespace {

using Texts = std::vector<std::string>;

struct Flag {
    std::string name;     ///< without the dashes
    bool takesValue;      ///< whether the next word is its value
    std::string choices;  ///< the values that there are, where only some are
};

/// One row a command: what may follow it.
struct Row {
    std::string parent;
    std::string path;
    Texts words;  ///< commands, and what an argument may be where only some words may
    std::vector<Flag> flags;

    std::string name() const { return path.substr(parent.empty() ? 0 : parent.size() + 1); }
};

/// What stands in braces in the help of an option or argument.
std::string choicesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const auto open = type.find('{');
    if (open == type.npos) return "";
    std::string choices = type.substr(open + 1, type.find('}', open) - open - 1);
    std::replace(choices.begin(), choices.end(), ',', ' ');
    return choices;
}

Row rowOf(const CLI::App& app, const Row& around) {
    Row row = around;
    for (const CLI::App* const inner : commandsOf(app)) row.words.push_back(inner->get_name());
    for (const CLI::Option* const option : app.get_options()) {
        const std::string choices = choicesOf(*option);
        for (const std::string& name : option->get_lnames())
            row.flags.push_back({name, option->get_items_expected_max() > 0, choices});
        if (option->get_positional() && !choices.empty()) row.words.push_back(choices);
    }
    return row;
}

void addRows(std::vector<Row>& rows, const CLI::App& app, const Row& around) {
    rows.push_back(rowOf(app, around));
    for (const CLI::App* const inner : commandsOf(app)) {
        const std::string& name = inner->get_name();
        addRows(rows, *inner, {around.path, around.path.empty() ? name : around.path + " " + name, {}, {}});
    }
}

/// The rows of the program and of all its commands, the program's first.
std::vector<Row> rowsOf(const CLI::App& program) {
    std::vector<Row> rows;
    addRows(rows, program, {});
    return rows;
}

/// The words that name a command, each after the path of the one around it.
Texts commandPatterns(const std::vector<Row>& rows) {
    Texts patterns;
    for (const Row& row : rows) {
        if (!row.path.empty()) patterns.push_back("'" + row.parent + ":" + row.name() + "'");
    }
    return patterns;
}

/// The options after which a value stands, whatever the command.
Texts valuedFlags(const std::vector<Row>& rows) {
    Texts names;
    for (const Row& row : rows) {
        for (const Flag& flag : row.flags) {
            if (flag.takesValue) names.push_back("--" + flag.name);
        }
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

/// What may follow each command: words, its own options, those of every command.
std::string casesOfCommands(const std::vector<Row>& rows) {
    std::string cases;
    for (const Row& row : rows) {
        Texts words = row.words;
        for (const Flag& own : row.flags) words.push_back("--" + own.name);
        for (const Flag& global : rows.front().flags) {
            if (!row.path.empty() && global.name != "help") words.push_back("--" + global.name);
        }
        if (row.path.empty()) words.emplace_back("--version");
        cases += "        '" + row.path + "') choices='" + joined(words, " ") + "' ;;\n";
    }
    return cases;
}

/// The values of options: those of a command behind it, those of every command anywhere.
std::string casesOfValues(const std::vector<Row>& rows) {
    std::string cases;
    for (const Row& row : rows) {
        const std::string at = row.path.empty() ? "*:--" : "'" + row.path + "':--";
        for (const Flag& flag : row.flags) {
            if (!flag.choices.empty()) cases += "    " + at + flag.name + ") choices='" + flag.choices + "' ;;\n";
        }
    }
    return cases;
}

/// Lines for bash and zsh that leave in `choices` what may follow `words`. bash makes a word of the = in --name=value.
std::string choosing(const std::vector<Row>& rows, const std::string& words) {
    const std::string valued = joined(valuedFlags(rows), "|");
    return "    local word before='' at='' choices=''\n"
           "    for word in "
           + words + "; do\n"
           "        [[ $word != '=' ]] || continue\n"
           "        case $before in\n"
           "        " + valued + ") before=''; continue ;;\n"
           "        esac\n"
           "        case $at:$word in\n"
           "        " + joined(commandPatterns(rows), "|") + ") at=${at:+$at }$word ;;\n"
           "        esac\n"
           "        before=$word\n"
           "    done\n"
           "    case $at:$before in\n"
           + casesOfValues(rows) +
           "    *:" + joined(valuedFlags(rows), "|*:") + ") ;;\n"
           "    *) case $at in\n"
           + casesOfCommands(rows) +
           "        esac ;;\n"
           "    esac\n";
}

std::string forBash(const std::vector<Row>& rows) {
    return "# Completion of quorin for bash.\n"
           "_quorin() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]}\n"
           "    [[ $current != '=' ]] || current=''\n"
           + choosing(rows, "\"${COMP_WORDS[@]:1:COMP_CWORD-1}\"") +
           "    mapfile -t COMPREPLY < <(compgen -W \"$choices\" -- \"$current\")\n"
           "}\n"
           "complete -o default -F _quorin quorin\n";
}

std::string forZsh(const std::vector<Row>& rows) {
    return "#compdef quorin\n"
           "_quorin() {\n"
           + choosing(rows, "\"${(@)words[2,CURRENT-1]}\"") +
           "    compadd -- ${=choices}\n"
           "    _files\n"
           "}\n"
           "compdef _quorin quorin\n";
}

/// The function that tells whether the words before the cursor lead to a command.
std::string fishCondition(const std::vector<Row>& rows) {
    return "function __quorin_at\n"
           "    set -l before ''\n"
           "    set -l at ''\n"
           "    for word in (commandline -opc)[2..-1]\n"
           "        if contains -- \"$before\" "
           + joined(valuedFlags(rows), " ") + "\n"
           "            set before ''\n"
           "            continue\n"
           "        end\n"
           "        switch \"$at:$word\"\n"
           "            case " + joined(commandPatterns(rows), " ") + "\n"
           "                set at (string trim \"$at $word\")\n"
           "        end\n"
           "        set before $word\n"
           "    end\n"
           "    test \"$at\" = \"$argv[1]\"\n"
           "end\n";
}

std::string forFish(const std::vector<Row>& rows) {
    std::string lines = "# Completion of quorin for fish.\n" + fishCondition(rows);
    for (const Row& row : rows) {
        const std::string at = " -n '__quorin_at \"" + row.path + "\"'";
        if (!row.words.empty()) lines += "complete -c quorin" + at + " -a '" + joined(row.words, " ") + "'\n";
        for (const Flag& flag : row.flags) {
            lines += "complete -c quorin" + (row.path.empty() ? "" : at) + " -l " + flag.name;
            lines += !flag.choices.empty() ? " -x -a '" + flag.choices + "'\n" : flag.takesValue ? " -r\n" : "\n";
        }
    }
    return lines + "complete -c quorin -n '__quorin_at \"\"' -l version\n";
}

}  // namespace

void addCompletion(CLI::App& program, Action& chosen) {
    CLI::App& completion = command(program, "completion", "Print the completion script of a shell",
                                   "quorin completion bash > /etc/bash_completion.d/quorin");
    const auto shell = std::make_shared<std::string>();
    completion.add_option("SHELL", *shell, "The shell")->required()->check(oneOf({"bash", "zsh", "fish"}));
    completion.callback([&program, shell, &chosen] {
        chosen = [&program, shell](Session& session) -> Outcome {
            const std::vector<Row> rows = rowsOf(program);
            session.output.text(*shell == "bash" ? forBash(rows) : *shell == "zsh" ? forZsh(rows) : forFish(rows));
            return {};
        };
    });
}

}  // namespace quorin::tool
