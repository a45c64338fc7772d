#include "quorin/services/requests/Models.hpp"

namespace quorin {

Oops modelFailedToInitialize() {
    return {.component = InstrumentationCodes::Component::configurationManager,
            .element = InstrumentationCodes::Element::default_,
            .errorCode = InstrumentationCodes::ErrorCode::jsonParsing,
            .message = "Model failed to initialize"};
}

}  // namespace quorin
