#include "quorin/platform/skell/RequestBody.hpp"

#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/skell/FormBody.hpp"
#include "quorin/platform/skell/XMLBody.hpp"

#include <utility>

namespace quorin::skell {
namespace {

std::string written(RequestBodyType type, const json::DocumentMap& content) {
    if (type == RequestBodyType::XML) return xmlBody(content);
    if (type == RequestBodyType::urlEncoded) return formBody(content);
    return json::print(content, json::Layout::compact);
}

}  // namespace

RequestBody::RequestBody(Parts parts) : parts_(std::make_shared<const Parts>(std::move(parts))) {}

RequestBody::RequestBody(RequestBodyType type, const json::DocumentMap& content)
    : RequestBody(Parts{.type = type, .content = content, .text = written(type, content)}) {}

RequestBody RequestBody::bytes(std::string text) { return RequestBody(Parts{.text = std::move(text)}); }

}  // namespace quorin::skell
