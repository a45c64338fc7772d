#pragma once

#include "quorin/model/Configuration.hpp"

#include "tests/platform/json/AnyValue.hpp"

#include <rapidcheck.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Models with any fields for properties, each field absent now and then.
namespace quorin {

/// Texts of any bytes, which need not be UTF-8.
inline rc::Gen<std::string> anyBytes() {
    return rc::gen::oneOf(rc::gen::resize(12, rc::gen::arbitrary<std::string>()), json::anyText());
}

template <class T>
rc::Gen<std::optional<T>> maybe(const rc::Gen<T>& gen) {
    return rc::gen::map(rc::gen::maybe(gen),
                        [](const rc::Maybe<T>& value) { return value ? std::optional<T>(*value) : std::nullopt; });
}

/// Draws values for the fields of one model; to be used inside a generator.
inline std::optional<Integer> integer() { return *maybe(rc::gen::arbitrary<Integer>()); }
inline std::optional<bool> boolean() { return *maybe(rc::gen::arbitrary<bool>()); }
inline std::optional<std::string> text() { return *maybe(anyBytes()); }

/// A model whose every field is drawn; specialised for each model.
template <class Model>
Model drawn();

template <class Model>
rc::Gen<Model> any() {
    return rc::gen::exec([] { return drawn<Model>(); });
}
template <class Model>
std::optional<Model> sectionOf() {
    return *maybe(any<Model>());
}
template <class Model>
std::optional<MapOf<Model>> sectionsOf() {
    using Entries = std::vector<std::pair<std::string, Model>>;
    const auto entries =
        *maybe(rc::gen::resize(4, rc::gen::container<Entries>(rc::gen::pair(anyBytes(), any<Model>()))));
    return entries ? std::optional(MapOf<Model>(entries->begin(), entries->end())) : std::nullopt;
}

template <>
inline Initialize drawn() {
    return {integer(), integer(), text(), boolean(), boolean(), text(),
            text(),    boolean(), text(), integer(), boolean(), integer()};
}
template <>
inline AppVersion drawn() {
    return {text(), text()};
}
template <>
inline ApplicationData drawn() {
    return {text(), text(), text(), text(), text(), text()};
}
template <>
inline Common drawn() {
    return {text(), text(), text(), text()};
}
template <>
inline Auth drawn() {
    const auto channels = maybe(rc::gen::resize(4, rc::gen::container<std::vector<std::string>>(anyBytes())));
    return {text(), text(), text(), integer(), boolean(), *channels, integer()};
}
template <>
inline Profile drawn() {
    return {text(), integer()};
}
template <>
inline Group drawn() {
    return {*anyBytes(), *anyBytes()};
}
template <>
inline Feature drawn() {
    Feature feature{.name = text()};
    if (const auto params = json::objectOf(*rc::gen::resize(4, rc::gen::arbitrary<json::Members>())).asObject();
        *rc::gen::arbitrary<bool>())
        feature.params = params;
    return feature;
}
template <>
inline Ads drawn() {
    return {integer(), integer(), integer(), boolean(), boolean(), integer(), integer()};
}
template <>
inline Timing drawn() {
    return {integer(), integer()};
}
template <>
inline Duration drawn() {
    return {integer(), integer()};
}
template <>
inline ContinuousPlayback drawn() {
    return {sectionOf<Timing>(), integer(), boolean(), sectionOf<Duration>()};
}
template <>
inline Player drawn() {
    return {integer(), integer(),        integer(), boolean(),
            boolean(), sectionOf<Ads>(), boolean(), sectionOf<ContinuousPlayback>(),
            text(),    boolean()};
}
template <>
inline AnalyticSuite drawn() {
    return {text(), text(), boolean(), integer(), text(), text(), integer(), boolean()};
}
template <>
inline ConfigLayout drawn() {
    return {text(), integer(), integer(), boolean(), integer(), integer()};
}
template <>
inline WebService drawn() {
    using enum HTTPMethod::Case;
    const auto method = rc::gen::element<HTTPMethod>(CONNECT, DELETE, HEAD, OPTIONS, PATCH, POST, PUT, TRACE, GET);
    const auto type = rc::gen::element<ContentType>(ContentType::JSON, ContentType::XML, ContentType::urlEncoded);
    return {*anyBytes(), *anyBytes(), *method, *type, *maybe(type)};
}
/// But for the fields that are never read back.
template <>
inline Configuration drawn() {
    return {.webServices = sectionsOf<WebService>(),
            .groups = *maybe(rc::gen::resize(4, rc::gen::container<std::vector<Group>>(any<Group>()))),
            .common = sectionOf<Common>(),
            .appVersion = sectionOf<AppVersion>(),
            .analytics = sectionsOf<AnalyticSuite>(),
            .initialize = sectionOf<Initialize>(),
            .auth = sectionOf<Auth>(),
            .player = sectionOf<Player>(),
            .layouts = sectionsOf<ConfigLayout>(),
            .profile = sectionOf<Profile>(),
            .applicationData = sectionOf<ApplicationData>(),
            .features = sectionsOf<Feature>()};
}

}  // namespace quorin
