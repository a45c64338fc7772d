#include "quorin/services/requests/URLEncode.hpp"

#include "quorin/platform/foundation/PercentEscape.hpp"

#include <cstddef>
#include <utility>

namespace quorin {
namespace {

constexpr auto escapedInQuery = foundation::EscapeSet::of("!*'();:@&=+$,/?%#[] ");

}  // namespace

std::optional<std::string> ConfigurationManagerUtils::urlEncode(const std::optional<StringMap>& params) {
    if (!params) return std::nullopt;
    std::string query;
    for (const auto& [key, value] : *params) {
        const std::size_t before = query.size();
        if (before > 0) query += '&';
        const bool isWhole = foundation::appendPercentEscaped(query, key, escapedInQuery)
                             && foundation::appendPercentEscaped(query += '=', value, escapedInQuery);
        if (!isWhole) query.resize(before);
    }
    return query.empty() ? std::nullopt : std::optional(std::move(query));
}

}  // namespace quorin
