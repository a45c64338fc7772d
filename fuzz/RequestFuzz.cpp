// A request out of texts that anybody may have written: the first line is method and URL, the next ones say by their
// first character what they are. What would be sent is refused, or has no line that does not belong there: first as the
// library hands it on, then as it arrives at a server.
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/skell/TransferSetup.hpp"
#include "quorin/services/requests/Skell.hpp"

#include "fuzz/Manager.hpp"
#include "fuzz/Wire.hpp"

#include <memory>
#include <set>

namespace quorin::fuzz {
namespace {

constexpr std::string_view reply = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";

/// The request that a script describes, and the manager that it is built by.
class Script {
public:
    explicit Script(std::string_view input) : manager_(steadyPlatform()) {
        Lines lines(input);
        const std::string first = lines.next();
        const Halves halves(first, ' ');
        arguments_.requestMethod = HTTPMethod::fromRawValue(std::string(halves.first)).value_or(HTTPMethod::POST);
        arguments_.requestURL = halves.second;
        while (!lines.isAtEnd()) take(lines.next());
    }

    Skell built() const { return Skell::build(arguments_, manager_); }

private:
    void take(const std::string& line) {
        if (line.empty()) return;
        const std::string rest = line.substr(1);
        const Halves pair(rest, '=');
        const std::string name(pair.first), value(pair.second);
        switch (line[0]) {
            case 'h': arguments_.requestHeaders[name] = value; break;
            case 'm': put(arguments_.urlMapping, name, value); break;
            case 'q': put(arguments_.queryParameters, name, value); break;
            case 'b': takeBody(rest); break;
            case 'a': manager_.setUserAgent(rest); break;
            case 'k': manager_.setKova(rest); break;
            case 'p': manager_.setVEXOMVPD(rest); break;
            case 'z': manager_.setUserZ(rest); break;
            case 'c': manager_.sync(foundation::HTTPCookie{.name = name, .value = value, .domain = "h.example"}); break;
            case '-': arguments_.removeUserAgent = true; break;
            default: break;
        }
    }

    static void put(std::optional<StringMap>& map, const std::string& name, const std::string& value) {
        if (!map) map.emplace();
        (*map)[name] = value;
    }

    void takeBody(std::string_view text) {
        const auto parsed = json::parse(text);
        if (parsed.value()) arguments_.dictionaryRepresentation = parsed.value()->asObject();
    }

    ConfigurationManager::Instance manager_;
    BuildArguments arguments_{};
};

bool hasLineEnd(std::string_view text) { return text.find_first_of(std::string_view("\r\n\0", 3)) != text.npos; }

/// The lines as the HTTP library gets them.
void checkLines(const skell::Hop& hop) {
    const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> lines(skell::headerLines(hop),
                                                                            skell::curl().slist_free_all);
    for (const curl_slist* line = lines.get(); line; line = line->next)
        require(!hasLineEnd(line->data), "no header line ends within");
    require(!hasControl(hop.url), "no control character in the URL");
}

/// The message as it arrives: one request line, lines of headers that somebody set, and the body.
void checkMessage(std::string_view message, const skell::Hop& hop) {
    std::set<std::string, std::less<>> names{"host",       "accept-encoding", "authorization", "content-length",
                                             "connection", "upgrade",         "http2-settings"};
    for (const auto& [name, value] : hop.headers) names.insert(lowered(name));
    const auto end = message.find("\r\n\r\n");
    require(end != message.npos, "a head ends");
    std::string_view head = message.substr(0, end + 2);
    const std::string method(hop.method.rawValue());
    for (bool isFirst = true; !head.empty(); isFirst = false) {
        const std::string_view line = head.substr(0, head.find("\r\n"));
        head.remove_prefix(line.size() + 2);
        require(!hasLineEnd(line), "a line ends with both of its characters");
        if (isFirst)
            require(line.starts_with(method + " ") && line.ends_with(" HTTP/1.1")
                        && std::count(line.begin(), line.end(), ' ') == 2,
                    "the first line is method, target and version");
        else
            require(names.contains(lowered(line.substr(0, line.find(':')))), "a header is one that was set");
    }
    const std::string_view body = message.substr(end + 4);
    require(hop.body ? hop.body->starts_with(body) : body.empty(), "the body is what was built");
}

void check(std::string_view input) {
    const Skell request = Script(input).built();
    skell::Hop hop{.method = request.method,
                   .url = request.url,
                   .headers = request.headers,
                   .body = request.body ? request.body->sharedText() : nullptr};
    hop.addCookies(*request.transport->cookies);
    if (skell::refusal(hop)) return;
    checkLines(hop);
    if (!lowered(hop.url).starts_with("http:") || hop.method == HTTPMethod::CONNECT) return;
    const Exchanged exchanged = wire().exchange(hop, *request.transport, reply);
    if (const auto* failure = std::get_if<SkellError>(&exchanged.outcome); failure && exchanged.sent.empty())
        return require(failure->kind == SkellError::Kind::invalidURL, "what is not refused is sent, or has no host");
    checkMessage(exchanged.sent, hop);
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size <= 16384) quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
