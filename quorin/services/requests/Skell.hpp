#pragma once

#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/skell/Request.hpp"
#include "quorin/services/WebService.hpp"
#include "quorin/services/requests/APIParams.hpp"
#include "quorin/services/requests/BuildArguments.hpp"

#include <string>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin {

/// A request to one of the app's services: `Skell::build(params, service).response()`. A plain record that can be
/// changed before it is sent, and sent any number of times.
///
/// Building sends nothing and never fails. It reads the manager's default headers at that moment; any thread.
struct Skell : skell::Request {
    using Instance = ConfigurationManager::Instance;

    Skell() = default;
    /// A plain request is one, so that `Skell::GET(url)` and the others make one.
    Skell(skell::Request request) : skell::Request(std::move(request)) {}

    /// The request that `service` and `params` describe: the service's headers with the caller's in their place, then
    /// as below. Whether the call may be made is for `WebService::configurationGuard` to say, before.
    static Skell build(const APIParams& params, const WebService& service,
                       const Instance& manager = ConfigurationManager::sharedInstance());

    /// The URL is the template with each key of the mapping replaced, wherever it stands, by its value as it is, one
    /// after the other in byte order of the keys; then `foundation::append` adds the query, escaped, unless what came
    /// of the template is no URL. The headers are the caller's with the manager's default headers in their place.
    ///
    /// The content of the body is sent as JSON, XML, or (by POST alone) as a form, as the header "Content-Type" says,
    /// exactly; with another media type, or none, there is no body. The request travels as all of the manager's do.
    static Skell build(BuildArguments arguments, const Instance& manager = ConfigurationManager::sharedInstance());

    /// A request with neither headers nor a body.
    static Skell createSkell(HTTPMethod method, std::string url) { return make(method, std::move(url)); }
};

}  // namespace quorin

#pragma GCC visibility pop
