#include "quorin/platform/skell/Json.hpp"

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/rx/Map.hpp"

#include <string>
#include <utility>

namespace quorin::skell {
namespace {

SkellError notJSON(const Response& response, const json::ParseError& error) {
    auto made = failure(SkellError::Kind::decoding, response.url(),
                        "a body that is not JSON, line " + std::to_string(error.position.line) + ", column "
                            + std::to_string(error.position.column) + ", " + error.message);
    made.position = error.position;
    return made;
}

/// The body as what `shaped` makes of its value, if it makes anything.
template <class T>
rx::Result<T> decoded(const Response& response, std::optional<T> (json::Value::*shaped)() const, const char* shape) {
    if (auto refused = statusFailure(response)) return *std::move(refused);
    const std::string& body = response.body();
    const json::ParseResult parsed = json::parse(body, body.capacity() - body.size());
    const json::Value* const whole = parsed.value();
    if (!whole) return notJSON(response, *parsed.error());
    if (auto value = (whole->*shaped)()) return std::move(*value);
    return failure(SkellError::Kind::decoding, response.url(), std::string("a body that is no JSON ") + shape);
}

}  // namespace

std::optional<SkellError> statusFailure(const Response& response) {
    if (response.status() >= 200 && response.status() <= 299) return std::nullopt;
    auto error = failure(SkellError::Kind::status, response.url(), "status " + std::to_string(response.status()));
    error.status = response.status();
    return error;
}

rx::Result<json::DocumentMap> jsonObject(const Response& response) {
    return decoded<json::DocumentMap>(response, &json::Value::asObject, "object");
}

rx::Result<json::List> jsonList(const Response& response) {
    return decoded<json::List>(response, &json::Value::asList, "array");
}

rx::Observable<json::DocumentMap> json(rx::Observable<Response> responses) {
    return rx::map(std::move(responses), jsonObject);
}

rx::Observable<json::List> jsonArray(rx::Observable<Response> responses) {
    return rx::map(std::move(responses), jsonList);
}

}  // namespace quorin::skell
