// Any bytes as all that a server says, to a method that the first byte names: what comes of them is a response within
// its limits or a failure, and so is what is made of its body. An encoded body is the same in one piece and in many.
#include "quorin/model/Configuration.hpp"
#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/ContentDecoder.hpp"
#include "quorin/platform/skell/ResponseHead.hpp"
#include "quorin/services/requests/Models.hpp"

#include "fuzz/Manager.hpp"
#include "fuzz/Wire.hpp"

#include <array>
#include <utility>

namespace quorin::fuzz {
namespace {

constexpr std::size_t maxBody = 100'000;
constexpr std::size_t longest = 100'000;  // a socket takes it whole
constexpr std::array methods{HTTPMethod::GET, HTTPMethod::HEAD, HTTPMethod::POST, HTTPMethod::CONNECT};

template <class T>
bool failsAs(const rx::Result<T>& result, SkellError::Kind kind) {
    const auto* error = result ? nullptr : result.error().template as<SkellError>();
    return error && error->kind == kind;
}

template <class Model>
void checkModels(const skell::Response& response, const rx::Result<json::DocumentMap>& object,
                 const rx::Result<json::List>& list) {
    const auto one = rx::wait(model<Model>(rx::just(response)));
    require(object || !one, "no model without an object");
    require(!object || static_cast<bool>(one) == Model::fromJSON(*object).has_value(), "an object makes its model");
    const auto all = rx::wait(models<Model>(rx::just(response)));
    require(static_cast<bool>(list) == static_cast<bool>(all), "models where there is a list");
    require(!all || all->size() <= list->size(), "no more models than elements");
}

void checkBody(const skell::Response& response) {
    const auto object = rx::wait(skell::json(rx::just(response)));
    const auto list = rx::wait(skell::jsonArray(rx::just(response)));
    require(!object || !list, "a body is an object or a list");
    if (response.status() < 200 || response.status() > 299)
        require(failsAs(object, SkellError::Kind::status) && failsAs(list, SkellError::Kind::status),
                "only a status of success has JSON");
    else
        require((object || failsAs(object, SkellError::Kind::decoding))
                    && (list || failsAs(list, SkellError::Kind::decoding)),
                "else it is the body's fault");
    checkModels<Configuration>(response, object, list);
    checkModels<WebService>(response, object, list);
    checkModels<Feature>(response, object, list);
}

void checkResponse(const skell::Response& response) {
    require(response.body().size() <= maxBody, "a body is within its limit");
    require(response.status() >= 200, "a response is a final one");
    for (const skell::HeaderField& field : response.headers()) {
        require((field.name + field.value).find_first_of("\r\n") == std::string::npos, "a field is one line");
        require(response.header(field.name).has_value(), "a field is found by its name");
    }
    foundation::HTTPCookieStorage storage;
    storage.setCookies(response.allHeaders("Set-Cookie"), response.url());
    require(!hasControl(storage.cookieHeader(response.url())), "no control character comes back in a cookie");
    checkBody(response);
}

/// Head lines as they are, without the library that cuts them out of a stream.
void checkHead(std::string_view text) {
    skell::ResponseHead head;
    std::size_t taken = 0;
    for (bool isTaken = true; isTaken && !text.empty();) {
        const auto line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
        text.remove_prefix(line.size());
        taken += line.size();
        isTaken = head.take(line);
        require(isTaken == (taken <= skell::ResponseHead::maxBytes), "a head has a limit");
    }
    require(!head.isComplete() || head.status() >= 200, "a head is complete with a final status");
    static_cast<void>(head.hasOneLength());
    for (const auto& field : head.takeFields())
        require((field.name + field.value).find('\n') == std::string::npos, "a field is one line");
}

/// The outcome, the content, and whether that is all of it.
using Decoded = std::pair<skell::ContentDecoder::Outcome, std::string>;

Decoded decoded(std::string_view encoding, std::string_view bytes, std::size_t step, bool& isComplete) {
    using Outcome = skell::ContentDecoder::Outcome;
    const auto decoder = skell::ContentDecoder::of(encoding);
    skell::Body body(maxBody);
    Outcome outcome = Outcome::taken;
    while (!bytes.empty() && outcome == Outcome::taken) {
        const auto piece = bytes.substr(0, step);
        bytes.remove_prefix(piece.size());
        outcome = decoder->decode(piece, body);
    }
    isComplete = decoder->isComplete();
    return {outcome, body.take()};
}

void checkDecoders(std::string_view bytes) {
    for (const std::string_view encoding : {"gzip", "br"}) {
        bool isWhole = false, isAlsoWhole = false;
        const Decoded once = decoded(encoding, bytes, bytes.size() + 1, isWhole);
        const Decoded often = decoded(encoding, bytes, 7, isAlsoWhole);
        require(once.second.size() <= maxBody, "a decoded body is within its limit");
        const bool isTaken = once.first == skell::ContentDecoder::Outcome::taken;  // what is not may be bad in two ways
        require(isTaken == (often.first == skell::ContentDecoder::Outcome::taken), "pieces do not change the verdict");
        if (isTaken) require(once == often && isWhole == isAlsoWhole, "pieces do not change a body");
    }
}

void check(std::string_view input) {
    if (input.empty() || input.size() > longest) return;
    const HTTPMethod method = methods[static_cast<unsigned char>(input[0]) % methods.size()];
    input.remove_prefix(1);
    skell::Transport transport = steadyPlatform().transport;
    transport.maxBody = maxBody;
    const auto outcome = wire().exchange({.method = method, .url = "http://h.example/a"}, transport, input).outcome;
    if (const auto* response = std::get_if<skell::Response>(&outcome)) checkResponse(*response);
    const auto end = input.find("\r\n\r\n");
    checkHead(input);
    checkDecoders(end == input.npos ? input : input.substr(end + 4));
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
