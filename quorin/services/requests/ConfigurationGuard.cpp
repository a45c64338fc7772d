#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/services/WebService.hpp"
#include "quorin/services/requests/APIParams.hpp"

namespace quorin {
namespace {

Oops refusal(int errorCode) {
    return {.component = InstrumentationCodes::Component::configurationManager,
            .element = InstrumentationCodes::Element::configurationGuard,
            .errorCode = errorCode};
}

}  // namespace

std::optional<rx::Error> WebService::refusalOf(const APIParams& params) {
    if (!ConfigurationManager::sharedInstance().configured())
        return refusal(InstrumentationCodes::ErrorCode::configNotInitialized);
    if (!params.hasValidParams()) return refusal(InstrumentationCodes::ErrorCode::invalidParams);
    return std::nullopt;
}

}  // namespace quorin
