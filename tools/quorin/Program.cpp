#include "Program.hpp"

#include "quorin/core/QuorinConfigManagerVersion.h"

#include "Arguments.hpp"
#include "Command.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace quorin::tool {
namespace {

/// The texts of the options that are converted when all arguments are known.
struct Forms {
    bool compact = false;
    std::string errors = "text";
};

void addFacts(CLI::App& program, GlobalOptions& options) {
    const auto add = [&](const char* name, auto& target, const char* variable, const char* meaning) {
        const auto take = [&target](const std::string& given) { target = given; };
        program.add_option_function<std::string>(name, take, meaning)->envname(variable)->type_name("S")->check(text());
    };
    add("--bundle-name", options.bundleName, "QUORIN_BUNDLE_NAME", "The main bundle's name; empty: it has none");
    add("--bundle-version", options.bundleVersion, "QUORIN_BUNDLE_VERSION", "Its short version; empty: it has none");
    add("--device-model", options.deviceModel, "QUORIN_DEVICE_MODEL", "The device's model");
    add("--system-name", options.systemName, "QUORIN_SYSTEM_NAME", "Its system");
    add("--system-version", options.systemVersion, "QUORIN_SYSTEM_VERSION", "The system's version");
    add("--locale", options.locale, "QUORIN_LOCALE", "The user's locale");
}

void addGlobalOptions(CLI::App& program, GlobalOptions& options, Forms& forms) {
    optionalText(program, "--store", options.store, "The key-value store; :memory: keeps nothing")
        .envname("QUORIN_STORE")
        ->type_name("FILE");
    addFacts(program, options);
    seconds(program, "--timeout", options.timeout, "Whole time of one request (30)")
        .envname("QUORIN_TIMEOUT")
        ->type_name("SECONDS");
    bytes(program, "--max-body", options.maxBody, "Largest decoded response body (16777216)")
        .envname("QUORIN_MAX_BODY")
        ->type_name("BYTES");
    optionalText(program, "--ca-file", options.caFile, "Certificates to trust instead of the system's")
        .envname("QUORIN_CA_FILE")
        ->type_name("FILE");
    flag(program, "--compact", forms.compact, "Print JSON on one line").envname("QUORIN_COMPACT");
    program.add_option("--errors", forms.errors, "The form of errors: text (the default) or json")
        ->envname("QUORIN_ERRORS")
        ->type_name("FORM")
        ->check(oneOf({"text", "json"}));
}

struct CommandMaker {
    std::string_view name{};
    void (*add)(CLI::App&, Action&) = nullptr;
};

/// In the order of the help.
constexpr std::array commands{CommandMaker{"load", addLoad},
                              CommandMaker{"show", addShow},
                              CommandMaker{"read", addRead},
                              CommandMaker{"equal", addEqual},
                              CommandMaker{"check", addCheck},
                              CommandMaker{"explain", addExplain},
                              CommandMaker{"diff", addDiff},
                              CommandMaker{"matrix", addMatrix},
                              CommandMaker{"report", addReport},
                              CommandMaker{"schema", addSchema},
                              CommandMaker{"brand", addBrand},
                              CommandMaker{"identity", addIdentity},
                              CommandMaker{"cookie", addCookie},
                              CommandMaker{"headers", addHeaders},
                              CommandMaker{"user-agent", addUserAgent},
                              CommandMaker{"request", addRequest},
                              CommandMaker{"encode", addEncode},
                              CommandMaker{"append", addAppend},
                              CommandMaker{"completion", addCompletion}};

/// The parser tells one command from others by the words alone, so it needs no more than those that are words. The
/// completion is made from all of them.
bool isNeeded(std::string_view command, std::span<const char* const> words) {
    const auto isWord = [&](std::string_view name) {
        return std::find(words.begin(), words.end(), name) != words.end();
    };
    return isWord(command) || isWord("completion");
}

void addCommands(CLI::App& program, Action& chosen, bool isWhole, std::span<const char* const> words) {
    program.require_subcommand(1);
    for (const CommandMaker& command : commands) {
        if (isWhole || isNeeded(command.name, words)) command.add(program, chosen);
    }
}

/// The version is asked for by the first word alone: elsewhere `--version` is an option of a command.
void addVersion(CLI::App& program, Action& chosen) {
    program.add_flag("--version")->required()->description("Print the program's version");
    program.callback([&chosen] {
        chosen = [](Session& session) -> Outcome {
            session.output.line(std::string("quorin ") + QuorinConfigManagerVersionString);
            return {};
        };
    });
}

Outcome outcomeOf(Session& session, const Action& chosen) {
    try {
        return chosen(session);
    } catch (const std::bad_alloc&) {
        return Failure::own("noValue", "there is not enough memory; give less, or more memory");
    }
}

int run(Session& session, const Action& chosen) {
    Outcome outcome = outcomeOf(session, chosen);
    session.warnOfStore(outcome);
    const bool isTold = outcome && !outcome->message.empty();
    if (const int error = session.output.flush(); error != 0 && !isTold)
        outcome = Failure::own("file", "the result could not be written to standard output: "
                                           + std::error_code(error, std::generic_category()).message());
    if (!outcome) return 0;
    if (outcome->message.empty()) return outcome->status;
    session.output.fail(*outcome);
    return std::max(outcome->status, session.trouble);
}

int usageError(const CLI::App& program, const CLI::ParseError& error, const Output& output) {
    std::fputs(program.help().c_str(), stderr);
    const Failure failure = Failure::usage(usageMessage(error, program));
    output.fail(failure);
    return failure.status;
}

void describe(CLI::App& program) {
    program.footer("Example: quorin load config.json --brand orvel\nThe version: quorin --version");
    program.fallthrough();
    program.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

/// Runs the program with the commands that the words need, or with all. Empty when the words do not parse with the
/// former: only the latter can tell why, and print the whole help.
std::optional<int> runWith(bool isWhole, std::span<const char* const> given) {
    Session session;
    Forms forms;
    Action chosen;
    CLI::App program("Loads the remote configuration of a brand and keeps what its requests need.", "quorin");
    describe(program);
    addGlobalOptions(program, session.options, forms);
    if (!given.empty() && std::string_view(given[0]) == "--version")
        addVersion(program, chosen);
    else
        addCommands(program, chosen, isWhole, given);
    const std::vector<std::string> words = argumentsOf(given, program);
    session.output.errorForm = wantsJSONErrors(words) ? ErrorForm::json : ErrorForm::text;
    try {
        program.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::ParseError& error) {
        if (!isWhole) return std::nullopt;
        const bool isHelp = dynamic_cast<const CLI::CallForHelp*>(&error) != nullptr;
        if (!isHelp) return usageError(program, error, session.output);
        chosen = [&program](Session& helped) -> Outcome { return helped.output.text(program.help()), std::nullopt; };
    }
    if (forms.compact) session.output.layout = json::Layout::compact;
    session.output.errorForm = forms.errors == "json" ? ErrorForm::json : ErrorForm::text;
    return run(session, chosen);
}

}  // namespace

int runProgram(int argc, const char* const* argv) {
    const std::span<const char* const> words(argv + std::min(argc, 1), argv + argc);
    const auto status = runWith(false, words);
    return status ? *status : *runWith(true, words);
}

}  // namespace quorin::tool
