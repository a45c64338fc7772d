#include "RequestArguments.hpp"

#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/foundation/URL.hpp"
#include "quorin/platform/skell/Hop.hpp"

#include "Joined.hpp"
#include "ModelFile.hpp"
#include "Pairs.hpp"
#include "tools/document/Nearest.hpp"

#include <utility>

namespace quorin::tool {
namespace {

std::optional<StringMap> unlessEmpty(const std::vector<std::string>& pairs) {
    return pairs.empty() ? std::nullopt : std::optional(mapOf(pairs));
}

/// The arguments as a host's parameters.
class GivenParams final : public APIParams {
public:
    GivenParams(const RequestArguments& given, std::optional<DocumentMap> content)
        : given_(given), content_(std::move(content)) {}

    std::optional<StringMap> headers() const override { return unlessEmpty(given_.headers); }
    std::optional<DocumentMap> dictionaryRepresentation() const override { return content_; }
    bool hasValidParams() const override { return true; }
    std::optional<StringMap> URLMapping() const override { return unlessEmpty(given_.map); }
    std::optional<StringMap> queryParameters() const override { return unlessEmpty(given_.query); }
    bool removeUserAgent() const override { return given_.removeUserAgent; }

private:
    const RequestArguments& given_;
    std::optional<DocumentMap> content_;
};

std::variant<WebService, Failure> serviceNamed(const std::string& name, const Configuration& configuration) {
    const auto& services = configuration.webServices;
    if (services) {
        if (const auto found = services->find(name); found != services->end()) return found->second;
    }
    std::vector<std::string_view> names;
    if (services) {
        for (const auto& [known, service] : *services) names.push_back(known);
    }
    const std::string near = document::nearest(name, names);
    return Failure::own("noService", "the configuration has no service \"" + calledArgument(name) + "\"; "
                                         + (near.empty() ? "it has none at all" : "names near it: " + near));
}

std::string methodFault(const std::string& given) {
    return HTTPMethod::matching(given) ? "" : "must be one of " + joined(HTTPMethod::rawValues, ", ");
}

bool hasPlaceholder(std::string_view url) {
    const auto brace = url.find('{');
    return brace != url.npos && url.find('}', brace) != url.npos;
}

void warnOfURL(const Skell& request, bool wantsQuery, Output& output) {
    if (hasPlaceholder(request.url))
        output.warn("the URL has a placeholder left; fill it with --map");
    else if (wantsQuery && !foundation::URL::parse(request.url))
        output.warn("the query is not appended to a text that is no URL; correct the URL");
}

void warnOfHeaders(const Skell& request, Output& output) {
    MapOf<bool> isTold;
    for (const auto& [name, value] : request.headers) {
        const auto [known, isFirst] = isTold.try_emplace(rawvalues::lowered(name), false);
        if (isFirst || std::exchange(known->second, true)) continue;
        output.warn("the header \"" + std::string(skell::tellable(name))
                    + "\" is there in several letter cases, and all are sent");
    }
}

void warnOfBody(const Skell& request, bool wantsBody, Output& output) {
    if (wantsBody && !request.body)
        output.warn("the body is not sent; give the header \"Content-Type\" of JSON or XML, or of a form with POST");
}

}  // namespace

void RequestArguments::addTo(CLI::App& command) {
    optionalText(command, "SERVICE", service, "The endpoint's name in the configuration").check(text());
    source.addTo(command, "--from", true);
    optionalText(command, "--url", url, "The URL, in place of an endpoint").type_name("URL")->check(text());
    command.add_option("--method", method, "The method for --url, in any letter case (GET)")
        ->type_name("METHOD")
        ->check(CLI::Validator(methodFault, ""));
    pairOption(command, "--map", map, "A text of the URL and what to put in its place");
    pairOption(command, "--query", query, "A pair of the query");
    pairOption(command, "--header", headers, "A header").type_name("NAME=VALUE");
    optionalText(command, "--body", body, "The file with the body's content, a JSON object; - is standard input")
        .type_name("FILE");
    flag(command, "--remove-user-agent", removeUserAgent, "Send no User-Agent");
}

void RequestArguments::check(const CLI::App& command) const {
    const bool hasSource = command.count("--from") > 0;
    if (service.has_value() == url.has_value())
        throw CLI::ValidationError("SERVICE", "or --url is needed, and not both");
    if (service.has_value() != hasSource)
        throw CLI::ValidationError("--from", "goes with SERVICE, and SERVICE with it");
    if (service && command.count("--method") > 0)
        throw CLI::ValidationError("--method", "goes with --url; a service has a method of its own");
}

std::variant<Skell, Failure> RequestArguments::build(Session& session) const {
    std::optional<DocumentMap> content;
    if (body) {
        auto read = objectIn(*body, "the body");
        if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
        content = std::get<DocumentMap>(std::move(read));
    }
    auto built = service ? buildForService(session, content) : buildForURL(session, content);
    if (const auto* request = std::get_if<Skell>(&built)) {
        warnOfURL(*request, !query.empty(), session.output);
        warnOfHeaders(*request, session.output);
        warnOfBody(*request, body.has_value(), session.output);
    }
    return built;
}

std::variant<Skell, Failure> RequestArguments::buildForService(Session& session,
                                                               const std::optional<DocumentMap>& content) const {
    const auto loaded = source.load(session);
    if (const auto* failure = std::get_if<Failure>(&loaded)) return *failure;
    auto found = serviceNamed(*service, *std::get<ConfigurationPointer>(loaded));
    if (auto* failure = std::get_if<Failure>(&found)) return std::move(*failure);
    return Skell::build(GivenParams(*this, content), std::get<WebService>(found), session.manager());
}

std::variant<Skell, Failure> RequestArguments::buildForURL(Session& session,
                                                           const std::optional<DocumentMap>& content) const {
    return Skell::build({.requestURL = *url,
                         .requestMethod = *HTTPMethod::matching(method),
                         .requestHeaders = mapOf(headers),
                         .urlMapping = unlessEmpty(map),
                         .queryParameters = unlessEmpty(query),
                         .dictionaryRepresentation = content,
                         .removeUserAgent = removeUserAgent},
                        session.manager());
}

}  // namespace quorin::tool
