#include "Sending.hpp"

#include "quorin/platform/foundation/Base64.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/json/UTF8.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Json.hpp"

#include "ModelType.hpp"

#include <vector>

namespace quorin::tool {
namespace {

json::Value textOf(const std::string& bytes) {
    if (json::isUTF8(bytes)) return json::Value(bytes);
    return json::DocumentMap{{"base64", foundation::base64(bytes)}};
}

json::Value headersOf(const skell::Response& response) {
    MapOf<std::vector<json::Value>> values;
    for (const auto& [name, value] : response.headers()) values[rawvalues::lowered(name)].emplace_back(value);
    std::vector<json::DocumentMap::Member> members;
    for (const auto& [name, all] : values) members.emplace_back(name, json::List(all));
    return json::DocumentMap(members);
}

Outcome printResponse(Session& session, const skell::Response& response) {
    session.output.json(json::DocumentMap{
        {"status", response.status()}, {"headers", headersOf(response)}, {"body", textOf(response.body())}});
    const auto refused = skell::statusFailure(response);
    return refused ? std::optional(Failure::of(*refused, "the server refused")) : std::nullopt;
}

}  // namespace

Outcome send(Session& session, const Skell& request, const Decoding& decoding) {
    if (decoding.type) {
        const auto decoded = ModelType::find(*decoding.type)->decode(request.response(), decoding.isList);
        if (!decoded) return Failure::of(decoded.error(), "cannot get " + *decoding.type + " from the response");
        session.output.json(*decoded);
        return {};
    }
    const auto response = rx::wait(request.response());
    return response ? printResponse(session, *response) : Failure::of(response.error(), "cannot send the request");
}

}  // namespace quorin::tool
