#include "Failure.hpp"

#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include <utility>

namespace quorin::tool {
namespace {

using json::DocumentMap;
using json::Value;

template <class T>
Value orNull(const std::optional<T>& value) {
    return value ? Value(*value) : Value();
}

DocumentMap recordOf(const Oops& oops) {
    return {{"component", InstrumentationCodes::Component::nameOf(oops.component)},
            {"element", InstrumentationCodes::Element::nameOf(oops.element)},
            {"errorCode", InstrumentationCodes::ErrorCode::nameOf(oops.errorCode)},
            {"message", orNull(oops.message)}};
}

DocumentMap recordOf(const SkellError& error) {
    return {{"component", "skell"},
            {"kind", SkellError::name(error.kind)},
            {"status", orNull(error.status)},
            {"url", error.url},
            {"message", error.message}};
}

}  // namespace

Failure Failure::own(std::string_view kind, std::string message, int status) {
    DocumentMap record{{"component", "quorin"}, {"kind", kind}, {"message", message}};
    return {std::move(message), std::move(record), status};
}

Failure Failure::usage(std::string message) { return own("usage", std::move(message), wrongUse); }

Failure Failure::silent() { return {}; }

Failure Failure::of(const rx::Error& error, std::string_view what) {
    Failure failure{.message = std::string(what) + ": " + error.description()};
    if (const auto* oops = error.as<Oops>())
        failure.record = recordOf(*oops);
    else if (const auto* request = error.as<SkellError>())
        failure.record = recordOf(*request);
    else
        failure.record = own("noValue", failure.message).record;
    return failure;
}

}  // namespace quorin::tool
