#include "quorin/model/Configuration.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

/// What was printed reads back as the same value.
void checkText(const quorin::json::Value& value) {
    const auto again = quorin::json::parse(quorin::json::print(value));
    require(again.value() != nullptr && *again.value() == value);
}

/// Any object makes a configuration, and its archived form makes an equal one.
void checkConfiguration(const quorin::DocumentMap& document) {
    quorin::ReadReport report;
    const auto configuration = quorin::Configuration::fromJSON(document, &report);
    require(configuration.has_value());
    const auto restored = quorin::Configuration::fromEncoded(configuration->encode());
    require(restored.has_value() && *restored == *configuration);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const auto parsed = quorin::json::parse(text);
    if (const auto* error = parsed.error()) {
        require(error->offset <= size);
        return 0;
    }
    checkText(*parsed.value());
    if (const auto document = parsed.value()->asObject()) checkConfiguration(*document);
    return 0;
}
