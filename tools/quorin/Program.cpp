#include "Program.hpp"

#include "quorin/core/QuorinConfigManagerVersion.h"

#include "Arguments.hpp"
#include "Command.hpp"

#include <algorithm>
#include <cstdio>
#include <new>
#include <string>
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

void addCommands(CLI::App& program, Action& chosen) {
    program.require_subcommand(1);
    for (const auto add :
         {addLoad, addShow, addRead, addEqual, addCheck, addExplain, addDiff, addMatrix, addReport, addSchema, addBrand,
          addIdentity, addCookie, addHeaders, addUserAgent, addRequest, addEncode, addAppend, addCompletion})
        add(program, chosen);
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

int run(Session& session, const Action& chosen) {
    Outcome outcome = chosen(session);
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

}  // namespace

int runProgram(int argc, const char* const* argv) {
    Session session;
    Forms forms;
    Action chosen;
    CLI::App program("Loads the remote configuration of a brand and keeps what its requests need.", "quorin");
    program.footer("Example: quorin load config.json --brand orvel\nThe version: quorin --version");
    program.fallthrough();
    program.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    addGlobalOptions(program, session.options, forms);
    (argc > 1 && std::string_view(argv[1]) == "--version" ? addVersion : addCommands)(program, chosen);
    const std::vector<std::string> words = argumentsOf(argc, argv, program);
    session.output.errorForm = wantsJSONErrors(words) ? ErrorForm::json : ErrorForm::text;
    try {
        program.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::CallForHelp&) {
        chosen = [&program](Session& helped) -> Outcome { return helped.output.text(program.help()), std::nullopt; };
    } catch (const CLI::ParseError& error) {
        return usageError(program, error, session.output);
    }
    if (forms.compact) session.output.layout = json::Layout::compact;
    session.output.errorForm = forms.errors == "json" ? ErrorForm::json : ErrorForm::text;
    try {
        return run(session, chosen);
    } catch (const std::bad_alloc&) {
        session.output.fail(Failure::own("noValue", "there is not enough memory; give less, or more memory"));
        return session.trouble;
    }
}

}  // namespace quorin::tool
