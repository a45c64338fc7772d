#include "quorin/services/requests/APIParams.hpp"

#include "quorin/services/requests/URLEncode.hpp"

namespace quorin {

std::optional<StringMap> APIParams::headers() const { return std::nullopt; }
std::optional<DocumentMap> APIParams::dictionaryRepresentation() const { return std::nullopt; }
std::optional<std::string> APIParams::urlEncodedString() const {
    return ConfigurationManagerUtils::urlEncode(queryParameters());
}
bool APIParams::hasValidParams() const { return false; }
std::optional<StringMap> APIParams::URLMapping() const { return std::nullopt; }
std::optional<StringMap> APIParams::queryParameters() const { return std::nullopt; }
bool APIParams::removeUserAgent() const { return false; }

}  // namespace quorin
