#include "quorin/facade/c/params.h"

#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/HostParams.hpp"

namespace {

namespace c = quorin::c;
using c::HostParams;
using quorin::StringMap;
using Values = HostParams::Values;

/// The pairs as a map, where the last of one name counts; empty where one of them is no text.
std::optional<StringMap> mapOf(const quorin_pair* pairs, std::uint64_t count) {
    if (!pairs && count > 0) return std::nullopt;
    StringMap map;
    for (std::uint64_t i = 0; i < count; ++i) {
        const auto name = c::textOf(pairs[i].name);
        const auto value = c::textOf(pairs[i].value);
        if (!name || !value) return std::nullopt;
        map.insert_or_assign(*name, *value);
    }
    return map;
}

template <class Value>
quorin_status set(quorin_handle params, Value Values::* member, Value value) noexcept {
    return c::changed<HostParams>(params, [&](HostParams& it) { it.values.*member = std::move(value); });
}

quorin_status setPairs(quorin_handle params, std::optional<StringMap> Values::* member, const quorin_pair* pairs,
                       std::uint64_t count) noexcept {
    return c::guarded([&] {
        auto map = mapOf(pairs, count);
        return map ? set(params, member, std::move(map)) : QUORIN_INVALID_ARGUMENT;
    });
}

}  // namespace

quorin_status quorin_params_make(quorin_handle* params) {
    return c::into(params, [&] { return c::put(HostParams(), params); });
}

quorin_status quorin_params_set_headers(quorin_handle params, const quorin_pair* headers, uint64_t count) {
    return setPairs(params, &Values::headers, headers, count);
}
quorin_status quorin_params_set_url_mapping(quorin_handle params, const quorin_pair* mapping, uint64_t count) {
    return setPairs(params, &Values::mapping, mapping, count);
}
quorin_status quorin_params_set_query_parameters(quorin_handle params, const quorin_pair* query, uint64_t count) {
    return setPairs(params, &Values::query, query, count);
}

quorin_status quorin_params_set_dictionary_representation(quorin_handle params, quorin_text json) {
    return c::guarded([&] {
        auto content = c::mapOf(json);
        return content ? set(params, &Values::content, std::move(content)) : QUORIN_INVALID_ARGUMENT;
    });
}

quorin_status quorin_params_set_remove_user_agent(quorin_handle params, int32_t remove) {
    return set(params, &Values::removeUserAgent, remove != 0);
}
quorin_status quorin_params_set_has_valid_params(quorin_handle params, int32_t valid) {
    return set(params, &Values::areValid, valid != 0);
}
