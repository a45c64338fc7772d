#include "Command.hpp"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>

namespace quorin::tool {
namespace {

constexpr int usageStatus = 2;

void addGlobalOptions(CLI::App& program, GlobalOptions& options, bool& compact, std::string& errors) {
    const auto add = [&]<class Target>(const std::string& flag, Target& target, const std::string& variable,
                                       const std::string& type, const std::string& meaning) {
        CLI::Option* option = nullptr;
        if constexpr (requires { target.reset(); }) option = &optionalText(program, flag, target, meaning);
        else option = program.add_option(flag, target, meaning);
        return option->envname(variable)->type_name(type);
    };
    add("--store", options.store, "QUORIN_STORE", "FILE", "The key-value store; :memory: keeps nothing");
    add("--bundle-name", options.bundleName, "QUORIN_BUNDLE_NAME", "S", "The main bundle's name")->check(text());
    add("--bundle-version", options.bundleVersion, "QUORIN_BUNDLE_VERSION", "S", "Its short version")->check(text());
    add("--device-model", options.deviceModel, "QUORIN_DEVICE_MODEL", "S", "The device's model")->check(text());
    add("--system-name", options.systemName, "QUORIN_SYSTEM_NAME", "S", "Its system")->check(text());
    add("--system-version", options.systemVersion, "QUORIN_SYSTEM_VERSION", "S", "The system's version")->check(text());
    add("--locale", options.locale, "QUORIN_LOCALE", "S", "The user's locale")->check(text());
    add("--timeout", options.timeout, "QUORIN_TIMEOUT", "SECONDS", "Whole time of one request (30)")
        ->check(seconds());
    add("--max-body", options.maxBody, "QUORIN_MAX_BODY", "BYTES", "Largest decoded response body (16777216)")
        ->check(bytes());
    add("--ca-file", options.caFile, "QUORIN_CA_FILE", "FILE", "Certificates to trust instead of the system's");
    program.add_flag("--compact", compact, "Print JSON on one line")->envname("QUORIN_COMPACT");
    add("--errors", errors, "QUORIN_ERRORS", "FORM", "The form of errors: text (the default) or json")
        ->check(CLI::IsMember({"text", "json"}));
}

void addCommands(CLI::App& program, Action& chosen) {
    for (const auto add : {addLoad, addShow, addRead, addEqual, addBrand, addIdentity, addHeaders, addUserAgent,
                           addCompletion})
        add(program, chosen);
}

/// Whether errors are wanted as JSON, asked where the arguments do not parse.
bool wantsJSONErrors(int argc, const char* const* argv) {
    const char* const variable = std::getenv("QUORIN_ERRORS");
    bool wants = variable && std::string_view(variable) == "json";
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--") break;
        if (argument.starts_with("--errors=")) wants = argument == "--errors=json";
        if (argument == "--errors" && i + 1 < argc) wants = std::string_view(argv[i + 1]) == "json";
    }
    return wants;
}

int run(Session& session, const Action& chosen) {
    Outcome outcome = chosen(session);
    session.warnOfStore(outcome);
    if (!session.output.flush() && !outcome)
        outcome = Failure::own("file", "the result could not be written to standard output; is the disk full?");
    if (!outcome) return 0;
    if (!outcome->message.empty()) session.output.fail(*outcome);
    return outcome->status;
}

int usageError(const CLI::App& program, const std::string& message, const Output& output) {
    std::fputs(program.help().c_str(), stderr);
    output.fail(Failure::own("usage", message));
    return usageStatus;
}

int main(int argc, const char* const* argv) {
    Session session;
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        session.output.line("quorin " QUORIN_VERSION);
        return session.output.flush() ? 0 : 1;
    }
    CLI::App program("Loads the remote configuration of a brand and keeps what its requests need.", "quorin");
    program.footer("Example: quorin load config.json --brand orvel\nThe version: quorin --version");
    program.fallthrough();
    program.require_subcommand(1);
    bool compact = false;
    std::string errors = "text";
    Action chosen;
    addGlobalOptions(program, session.options, compact, errors);
    addCommands(program, chosen);
    try {
        program.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        session.output.text(program.help());
        return session.output.flush() ? 0 : 1;
    } catch (const CLI::ParseError& error) {
        session.output.errorForm = wantsJSONErrors(argc, argv) ? ErrorForm::json : ErrorForm::text;
        return usageError(program, error.what(), session.output);
    }
    if (compact) session.output.layout = json::Layout::compact;
    if (errors == "json") session.output.errorForm = ErrorForm::json;
    return run(session, chosen);
}

}  // namespace
}  // namespace quorin::tool

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return quorin::tool::main(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorin: %s\n", error.what());
        return 1;
    }
}
