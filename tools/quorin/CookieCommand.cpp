#include "quorin/platform/foundation/File.hpp"
#include "quorin/platform/foundation/HTTPCookieStorage.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/foundation/Trimmed.hpp"
#include "quorin/platform/foundation/URL.hpp"

#include "Command.hpp"
#include "Source.hpp"

#include <variant>

namespace quorin::tool {
namespace {

using foundation::HTTPCookie;

constexpr std::string_view setCookie = "Set-Cookie";

struct Arguments {
    std::string url{};
    std::string file = "-";
    std::optional<std::string> target{};
};

json::Value sameSiteOf(const HTTPCookie& cookie) {
    return cookie.sameSite ? json::Value(HTTPCookie::nameOf(*cookie.sameSite)) : json::Value();
}

json::Value expiryOf(const HTTPCookie& cookie) {
    return cookie.expires ? json::Value(json::Integer{cookie.expires->time_since_epoch().count()}) : json::Value();
}

json::Value valueOf(const HTTPCookie& cookie) {
    return json::DocumentMap{
        {"name", cookie.name},           {"value", cookie.value},          {"domain", cookie.domain},
        {"path", cookie.path},           {"hostOnly", cookie.isHostOnly},  {"secure", cookie.isSecure},
        {"httpOnly", cookie.isHTTPOnly}, {"sameSite", sameSiteOf(cookie)}, {"expires", expiryOf(cookie)}}
        .value();
}

Outcome none(const std::string& message) { return Failure::own("noValue", message); }

/// The value of a line that may be a whole header line.
std::string_view valueIn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = foundation::trimmed(line);
    const auto colon = line.find(':');
    const bool isHeader = colon != line.npos && rawvalues::sameFolded(line.substr(0, colon), setCookie);
    return isHeader ? line.substr(colon + 1) : line;
}

/// What a server at the URL would have sent with the lines of the file.
std::variant<skell::Response, Failure> responseOf(const Arguments& arguments) {
    const auto read = foundation::readFile(pathOf(arguments.file));
    if (!read)
        return Failure::own("file", "cannot read " + calledFile(arguments.file) + ": " + read.failure.message()
                                        + "; name a file that can be read");
    skell::Response::Content content{.status = 200, .url = arguments.url};
    for (std::string_view rest = read.bytes; !rest.empty();) {
        const auto end = std::min(rest.find('\n'), rest.size());
        content.headers.push_back({std::string(setCookie), std::string(valueIn(rest.substr(0, end)))});
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return skell::Response(std::move(content));
}

Outcome parse(Session& session, const Arguments& arguments) {
    const auto response = responseOf(arguments);
    if (const auto* failure = std::get_if<Failure>(&response)) return *failure;
    foundation::HTTPCookieStorage storage;
    storage.setCookies(std::get<skell::Response>(response).allHeaders(setCookie), arguments.url);
    if (arguments.target) {
        const std::string header = storage.cookieHeader(*arguments.target);
        if (header.empty()) return none("none of these cookies would be sent to that URL");
        session.output.result(header);
        return {};
    }
    std::vector<json::Value> held;
    for (const HTTPCookie& cookie : storage.cookies()) held.push_back(valueOf(cookie));
    session.output.json(json::List(held).value());
    return {};
}

Outcome sync(Session& session, const Arguments& arguments) {
    const auto response = responseOf(arguments);
    if (const auto* failure = std::get_if<Failure>(&response)) return *failure;
    const auto cookie = ConfigurationManager::Instance::kovaCookie(std::get<skell::Response>(response));
    const bool hasExpired = cookie && cookie->expires && *cookie->expires <= HTTPCookie::currentTime();
    if (!cookie || cookie->value.empty() || hasExpired)
        return none("no account cookie is set there; it is named " + std::string(CookieKeys::kova)
                    + ", has a value and lasts");
    session.manager().sync(cookie);
    if (auto failure = session.storeFailure()) return failure;
    session.output.json(valueOf(*cookie));
    return {};
}

Outcome show(Session& session) {
    auto& manager = session.manager();
    if (!manager.kova())
        return none("there is no account identifier to make a cookie of; set one: quorin identity set kova VALUE");
    if (!manager.configDomain())
        return none("there is no domain to make a cookie for; keep one: quorin cookie sync --url URL");
    const auto cookie = manager.createCookie(manager.kova());
    if (!cookie)
        return none(
            "the account identifier has a control character or more than 4096 bytes, or the domain is no host;"
            " set another: quorin identity set kova VALUE, or quorin cookie sync --url URL");
    session.output.json(valueOf(*cookie));
    return {};
}

CLI::Validator urlWithHost() {
    const auto check = [](const std::string& given) {
        const auto url = foundation::URL::parse(given);
        return url && url->scheme && !url->host.value_or("").empty() ? std::string() : "must be a URL with a host";
    };
    return {check, ""};
}

std::shared_ptr<Arguments> fieldsArguments(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    app.add_option("--url", arguments->url, "The URL of the response")
        ->required()
        ->type_name("URL")
        ->check(urlWithHost());
    app.add_option("FILE", arguments->file, "The file with the header values, one a line; - is standard input")
        ->capture_default_str();
    return arguments;
}

void addParse(CLI::App& cookie, Action& chosen) {
    CLI::App& parsing = command(cookie, "parse", "Print the cookies that Set-Cookie headers leave behind",
                                "quorin cookie parse --url https://example.com/ set-cookies.txt");
    const auto arguments = fieldsArguments(parsing);
    optionalText(parsing, "--for", arguments->target, "Print the Cookie header for this URL instead")
        .type_name("URL2")
        ->check(urlWithHost());
    parsing.callback([=, &chosen] { chosen = [=](Session& session) { return parse(session, *arguments); }; });
}

void addSync(CLI::App& cookie, Action& chosen) {
    CLI::App& syncing = command(cookie, "sync", "Install the account cookie that Set-Cookie headers set",
                                "quorin cookie sync --url https://example.com/ set-cookies.txt");
    const auto arguments = fieldsArguments(syncing);
    syncing.callback([=, &chosen] { chosen = [=](Session& session) { return sync(session, *arguments); }; });
}

}  // namespace

void addCookie(CLI::App& program, Action& chosen) {
    CLI::App& cookie =
        command(program, "cookie", "Read cookies, and install or print the account's", "quorin cookie show");
    cookie.require_subcommand(1);
    addParse(cookie, chosen);
    addSync(cookie, chosen);
    CLI::App& showing =
        command(cookie, "show", "Print the account cookie that the current identity makes", "quorin cookie show");
    showing.callback([&chosen] { chosen = show; });
}

}  // namespace quorin::tool
