#include "DocumentSource.hpp"

#include "quorin/platform/foundation/File.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Json.hpp"
#include "quorin/platform/skell/Request.hpp"

#include "Source.hpp"

#include <utility>

namespace quorin::tool {
namespace {

std::variant<Document, Failure> documentAtURL(const std::string& url, const Session& session) {
    constexpr std::string_view what = "cannot load the URL";
    auto request = skell::Request::GET(url);
    request.transport = session.transport();
    const auto response = rx::wait(request.response());
    if (!response) return Failure::of(response.error(), what);
    const auto object = skell::jsonObject(*response);
    if (!object) return Failure::of(object.error(), what);
    return Document{response->body(), *object};
}

}  // namespace

bool isURL(std::string_view name) {
    const auto begins = [&](std::string_view scheme) {
        return rawvalues::sameFolded(name.substr(0, scheme.size()), scheme);
    };
    return begins("http://") || begins("https://");
}

std::variant<Document, Failure> documentAt(const std::string& name, const Session& session) {
    return isURL(name) ? documentAtURL(name, session) : documentIn(name, "a document");
}

std::variant<Document, Failure> documentIn(const std::string& file, const std::string& called) {
    const std::string what = "cannot read " + called + " from " + calledFile(file) + ": ";
    auto read = foundation::readFile(pathOf(file), json::parsePadding);
    if (!read) return Failure::own("file", what + read.failure.message() + "; name a file that can be read");
    const auto parsed = json::parse(read.bytes, read.bytes.capacity() - read.bytes.size());
    if (const auto* broken = parsed.error())
        return Failure::own("notRead", what + notJSON(broken->position, broken->message));
    if (auto object = parsed.value()->asObject()) return Document{std::move(read.bytes), *std::move(object)};
    return Failure::own("notRead", what + "it holds a JSON " + std::string(nameOf(parsed.value()->kind()))
                                       + " where an object must be");
}

std::string notJSON(json::Position position, const std::string& why) {
    return "not JSON at line " + std::to_string(position.line) + ", column " + std::to_string(position.column) + ": "
           + why + "; mend it there";
}

}  // namespace quorin::tool
