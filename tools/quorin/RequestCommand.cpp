#include "Command.hpp"
#include "CurlLine.hpp"
#include "ModelType.hpp"
#include "Pairs.hpp"
#include "RequestArguments.hpp"
#include "Sending.hpp"

namespace quorin::tool {
namespace {

struct Arguments : RequestArguments {
    bool asCurl = false;
    bool isSent = false;
    Decoding decoding{};
};

json::Value bodyOf(const Skell& request) {
    if (!request.body) return {};
    return json::DocumentMap{{"type", request.body->type()->rawValue()},
                             {"content", request.body->content()},
                             {"text", request.body->text()}};
}

Outcome printRequest(Session& session, const Skell& request) {
    session.output.json(json::DocumentMap{{"method", request.method.rawValue()},
                                          {"url", request.url},
                                          {"headers", documentOf(request.headers)},
                                          {"body", bodyOf(request)}});
    return {};
}

/// Linux takes no longer argument of a command, and a shell then says only that the list of them is too long.
void warnOfLength(const Skell& request, Output& output) {
    constexpr std::size_t longest = 128 * 1024;
    if (request.body && request.body->text().size() >= longest)
        output.warn("the body is too long for an argument of a command; use --send");
}

Outcome printCurlLine(Session& session, const Skell& request) {
    if (const auto refused = request.refusal()) return Failure::of(*refused, "the request cannot be sent");
    warnOfLength(request, session.output);
    session.output.result(curlLine(request));
    return {};
}

Outcome buildAndShow(Session& session, const Arguments& arguments) {
    const auto built = arguments.build(session);
    if (const auto* failure = std::get_if<Failure>(&built)) return *failure;
    const Skell& request = std::get<Skell>(built);
    if (arguments.asCurl) return printCurlLine(session, request);
    if (arguments.isSent) return send(session, request, arguments.decoding);
    return printRequest(session, request);
}

}  // namespace

void addRequest(CLI::App& program, Action& chosen) {
    CLI::App& request = command(program, "request", "Build the request for an endpoint or a URL, and print or send it",
                                "quorin request search --from config.json --brand orvel --map '{id}=42' "
                                "--query q=news");
    const auto arguments = std::make_shared<Arguments>();
    arguments->addTo(request);
    CLI::Option& curl = flag(request, "--curl", arguments->asCurl, "Print the equal curl command line");
    CLI::Option& sent = flag(request, "--send", arguments->isSent, "Send it and print the response");
    curl.excludes(&sent);
    CLI::Option& type =
        optionalText(request, "--as", arguments->decoding.type, "Print what the response holds of TYPE");
    type.type_name("TYPE")->check(oneOf(ModelType::names()))->needs(&sent);
    flag(request, "--list", arguments->decoding.isList, "The response is a list of TYPE").needs(&type);
    request.callback([arguments, &request, &chosen] {
        arguments->check(request);
        chosen = [arguments](Session& session) { return buildAndShow(session, *arguments); };
    });
}

}  // namespace quorin::tool
