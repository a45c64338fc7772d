#pragma once

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/platform/json/List.hpp"
#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Result.hpp"
#include "quorin/platform/skell/Response.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include <optional>

#pragma GCC visibility push(default)

namespace quorin::skell {

/// The failure of kind `status` that a response outside 200-299 is; empty for one within.
std::optional<SkellError> statusFailure(const Response& response);

/// The JSON object that is the response's body. Fails with a `SkellError` of kind `status` outside 200-299, else of
/// kind `decoding` when the body is no JSON object; the message then has line and column where it is no JSON at all.
rx::Result<json::DocumentMap> jsonObject(const Response& response);

/// The same for a JSON array.
rx::Result<json::List> jsonList(const Response& response);

/// `jsonObject` of each response, on the delivering thread.
rx::Observable<json::DocumentMap> json(rx::Observable<Response> responses);

/// `jsonList` of each response, on the delivering thread.
rx::Observable<json::List> jsonArray(rx::Observable<Response> responses);

}  // namespace quorin::skell

#pragma GCC visibility pop
