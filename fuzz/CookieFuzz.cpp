// Cookies that servers set and a client sends, as a script of lines:
//     @URL  the next responses come from there      <TEXT  one has this Set-Cookie header
//     =TEXT the account identifier, made a cookie   +N     N seconds pass
//     >URL  a request goes there
// What would be sent has no control character, and no cookie of a host that may not set one for the receiver.
#include "quorin/context/AccountCookie.hpp"
#include "quorin/platform/foundation/CookieOrigin.hpp"
#include "quorin/platform/foundation/HTTPCookieStorage.hpp"
#include "quorin/platform/skell/Address.hpp"
#include "quorin/platform/skell/Hop.hpp"

#include "fuzz/Fuzz.hpp"

#include <array>
#include <vector>

namespace quorin::fuzz {
namespace {

using foundation::HTTPCookie;

/// Whether `host` is `domain` or lies below it.
bool isWithin(std::string_view host, std::string_view domain) {
    if (host == domain) return true;
    return !domain.empty() && host.size() > domain.size() && host.ends_with(domain)
           && host[host.size() - domain.size() - 1] == '.';
}

/// The host that a URL names, by nothing but where its delimiters stand.
std::string hostIn(std::string_view url) {
    const auto from = url.find("//");
    std::string_view authority = url.substr(from == url.npos ? url.size() : from + 2);
    authority = authority.substr(0, authority.find_first_of("/?#"));
    authority.remove_prefix(authority.rfind('@') + 1);  // none: the whole
    const auto end = authority.starts_with('[') ? authority.find(']') + 1 : authority.find(':');
    return lowered(authority.substr(0, end));
}

/// Without the spaces around it.
std::string trimmed(const std::string& text) {
    const auto from = text.find_first_not_of(' ');
    return from == text.npos ? std::string() : text.substr(from, text.find_last_not_of(' ') + 1 - from);
}

class Client {
public:
    void run(std::string_view line) {
        const auto rest = line.substr(std::min<std::size_t>(1, line.size()));
        switch (line.empty() ? ' ' : line[0]) {
            case '@': origin_ = rest; break;
            case '<': receive(HTTPCookie::cookiesWithResponseHeaderFields(std::array{rest}, origin_, now())); break;
            case '=': receiveAccount(std::string(rest)); break;
            case '+': pass(rest); break;
            case '>': send(std::string(rest)); break;
            default: break;
        }
    }

private:
    struct Given {
        HTTPCookie cookie{};
        std::string by{};
    };

    HTTPCookie::Time now() const { return HTTPCookie::Time(std::chrono::seconds(now_)); }

    void pass(std::string_view digits) {
        for (const char c : digits.substr(0, 9)) now_ += c >= '0' && c <= '9' ? c - '0' : 1000;
    }

    void receiveAccount(const std::string& kova) {
        if (auto cookie = accountCookie(kova, origin_)) {
            require(cookie->value == trimmed(kova.substr(0, kova.find(';'))),
                    "an account's cookie bears its identifier");
            require(cookie->isHostOnly, "an account's cookie is for one host");
            receive({*std::move(cookie)});
        }
    }

    void receive(std::vector<HTTPCookie> cookies) {
        const auto origin = foundation::CookieOrigin::of(origin_);
        for (HTTPCookie& cookie : cookies) {
            const std::string by = origin ? origin->host : cookie.domain;
            require(!cookie.name.empty(), "a cookie has a name");
            require(!hasControl(cookie.name + cookie.value + cookie.domain + cookie.path), "no control in a cookie");
            require((cookie.name + cookie.value).find(';') == std::string::npos, "a cookie ends with its semicolon");
            require(isWithin(by, cookie.domain), "a host sets cookies for itself and for what it lies below");
            require(!cookie.isHostOnly || by == cookie.domain, "a cookie of one host is of the host that set it");
            require(cookie.isHostOnly || cookie.domain == by || cookie.domain.find('.') != std::string::npos,
                    "no cookie for a whole top level");
            given_.push_back({cookie, by});
            storage_.setCookie(std::move(cookie));
        }
    }

    /// Whether the cookie was set, and by a host whose cookies `host` may have.
    bool mayHave(const HTTPCookie& cookie, std::string_view host) const {
        return std::any_of(given_.begin(), given_.end(), [&](const Given& given) {
            return given.cookie == cookie && isWithin(given.by, cookie.domain)
                   && (cookie.isHostOnly ? given.by == host : isWithin(host, cookie.domain));
        });
    }

    void send(const std::string& url) {
        const auto origin = foundation::CookieOrigin::of(url);
        const auto cookies = storage_.cookies(url);
        if (!origin) return require(cookies.empty(), "without a host there are no cookies");
        if (!origin->host.starts_with('[')) require(origin->host == hostIn(url), "the host is the one in the URL");
        for (const HTTPCookie& cookie : cookies) {
            require(mayHave(cookie, origin->host), "a host gets what it may have");
            require(!cookie.isSecure || lowered(url).starts_with("https:"), "a secure cookie goes over https");
            require(!cookie.expires || *cookie.expires > now(), "what has expired is not sent");
        }
        checkMessage(url, cookies);
    }

    /// The message as it leaves: its header, and whom the HTTP library takes for the receiver.
    void checkMessage(const std::string& url, const std::vector<HTTPCookie>& cookies) {
        skell::Hop hop{.url = url};
        hop.addCookies(storage_);
        require(hop.headers.contains("Cookie") == !cookies.empty(), "what is held is sent");
        for (const auto& [name, value] : hop.headers) require(!hasControl(value), "no control in the header");
        if (cookies.empty() || skell::refusal(hop)) return;
        const auto address = skell::Address::of(url);
        for (const HTTPCookie& cookie : cookies)
            require(address && (address->host.starts_with('[') || isWithin(address->host, cookie.domain)),
                    "the message goes to the host whose cookies it bears");
    }

    long long now_ = 1'700'000'000;
    foundation::HTTPCookieStorage storage_{[this] { return now(); }};
    std::string origin_{};
    std::vector<Given> given_{};
};

void check(std::string_view input) {
    Client client;
    for (Lines lines(input); !lines.isAtEnd();) client.run(lines.next());
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
