#include "bench/Competitors.hpp"

#include <nlohmann/json.hpp>
#include <simdjson.h>

#include <vector>

namespace quorin::bench {
namespace {

using nlohmann::json;

const json* find(const json& object, const char* key) {
    const auto member = object.find(key);
    return member == object.end() ? nullptr : &*member;
}

void get(const json& object, const char* key, std::optional<std::string>& into) {
    const json* const value = find(object, key);
    if (value && value->is_string()) into = value->get<std::string>();
}

void get(const json& object, const char* key, std::optional<Integer>& into) {
    const json* const value = find(object, key);
    if (value && value->is_number()) into = value->get<Integer>();
}

void get(const json& object, const char* key, std::optional<bool>& into) {
    const json* const value = find(object, key);
    if (value && value->is_boolean()) into = value->get<bool>();
}

template <class Section, class Read>
void get(const json& object, const char* key, std::optional<Section>& into, Read read) {
    const json* const value = find(object, key);
    if (value && value->is_object()) read(*value, into.emplace());
}

template <class Section, class Read>
void getMap(const json& object, const char* key, std::optional<MapOf<Section>>& into, Read read) {
    const json* const value = find(object, key);
    if (!value || !value->is_object()) return;
    for (const auto& [name, member] : value->items()) read(name, member, into ? *into : into.emplace());
}

void readPlayer(const json& object, Player& player) {
    get(object, "historyInterval", player.historyInterval);
    get(object, "contentInterval", player.contentInterval);
    get(object, "contentTimeout", player.contentTimeout);
    get(object, "hardwiredExternalDisplaysEnabled", player.hardwiredExternalDisplaysEnabled);
    get(object, "secureExternalOutput", player.secureExternalOutput);
    get(object, "prerollOnResume", player.prerollOnResume);
    get(object, "castRecieverId", player.castRecieverID);
    get(object, "useGeoCache", player.useGeoCache);
    get(object, "ads", player.ads, [](const json& from, Ads& ads) {
        get(from, "adbreakUnlock", ads.adbreakUnlock);
        get(from, "freeTime", ads.freeTime);
        get(from, "overtimeTimeout", ads.overtimeTimeout);
        get(from, "vpaidEnabled", ads.vpaidEnabled);
        get(from, "truexEnabled", ads.truexEnabled);
        get(from, "timeout", ads.timeout);
        get(from, "durationBetweenAd", ads.durationBetweenAd);
    });
    get(object, "continuousPlayback", player.continuousPlayback, [](const json& from, ContinuousPlayback& playback) {
        get(from, "playlistSize", playback.playlistSize);
        get(from, "enabled", playback.enabled);
        const auto pair = [](const json& times, auto& into) {
            get(times, "sf", into.sf);
            get(times, "lf", into.lf);
        };
        get(from, "timing", playback.timing, pair);
        get(from, "duration", playback.duration, pair);
    });
}

void readInitialize(const json& object, Initialize& init) {
    get(object, "configRefreshInterval", init.configRefreshInterval);
    get(object, "sessionRefreshInterval", init.sessionRefreshInterval);
    get(object, "storeLink", init.storeLink);
    get(object, "isIRateEnabled", init.isIRateEnabled);
    get(object, "isRateThisAppEnabled", init.isRateThisAppEnabled);
    get(object, "optionalUpdateLink", init.optionalUpdateLink);
    get(object, "forceUpdateLink", init.forceUpdateLink);
    get(object, "isMaintenanceState", init.isMaintenanceState);
    get(object, "maintenanceMainMessage", init.maintenanceMainMessage);
    get(object, "compulsiveRewardCount", init.compulsiveRewardCount);
    get(object, "compulsiveReward", init.compulsiveReward);
    get(object, "geoCacheDuration", init.geoCacheDuration);
}

void readApplication(const json& object, ApplicationData& data) {
    get(object, "author", data.author);
    get(object, "copyright", data.copyright);
    get(object, "email", data.supportEmail);
    get(object, "link", data.link);
    if (const json* const version = find(object, "version"); version && version->is_object()) {
        get(*version, "latest", data.latestVersion);
        get(*version, "required", data.requiredVersion);
    }
}

/// The untyped part of a feature, in the library's own type so that the results can be compared.
Value valueOf(const json& value) {
    if (value.is_string()) return value.get_ref<const std::string&>();
    if (value.is_boolean()) return value.get<bool>();
    if (value.is_number_integer()) return value.get<Integer>();
    if (!value.is_object()) return {};
    std::vector<DocumentMap::Member> members;
    members.reserve(value.size());
    for (const auto& [name, member] : value.items()) members.emplace_back(name, valueOf(member));
    return DocumentMap(members);
}

void readService(const std::string& name, const json& object, MapOf<WebService>& into) {
    const json* const url = find(object, "url");
    const json* const value = url && url->is_object() ? find(*url, "value") : nullptr;
    const json* const method = find(object, "method");
    if (!value || !value->is_string() || !method || !method->is_string()) return;
    const auto known = HTTPMethod::matching(method->get_ref<const std::string&>());
    if (!known) return;
    WebService service{.name = name, .url = value->get<std::string>(), .method = *known};
    if (const json* const header = find(object, "header"); header && header->is_object()) {
        if (const json* const type = find(*header, "Content-Type"); type && type->is_string())
            service.contentTypeHeader =
                ContentType::matching(type->get_ref<const std::string&>()).value_or(ContentType::urlEncoded);
        if (const json* const accept = find(*header, "Accept"); accept && accept->is_string())
            service.acceptHeader = ContentType::matching(accept->get_ref<const std::string&>());
    }
    into.emplace(name, std::move(service));
}

void readSuite(const json& object, AnalyticSuite& suite) {
    get(object, "account", suite.account);
    get(object, "id", suite.id);
    get(object, "logEvents", suite.logEvents);
    get(object, "logLevel", suite.logLevel);
    get(object, "server", suite.server);
    get(object, "sf_code", suite.sfCode);
    get(object, "timeout", suite.timeout);
    get(object, "enabled", suite.enabled);
}

void readLayout(const json& object, ConfigLayout& layout) {
    get(object, "initialRequest", layout.initialRequest);
    get(object, "paginationSize", layout.paginationSize);
    get(object, "kidSafeDisplayCategoryMenu", layout.kidSafeDisplayCategoryMenu);
    get(object, "heroCycleDuration", layout.heroCycleDuration);
    get(object, "successDuration", layout.successDuration);
}

void readMaps(const json& section, Configuration& configuration) {
    getMap(section, "features", configuration.features, [](const std::string& name, const json& from, auto& into) {
        into.emplace(name, Feature{.name = name, .params = valueOf(from).asObject()});
    });
    getMap(section, "analytics", configuration.analytics,
           [](const std::string& name, const json& from, auto& into) { readSuite(from, into[name]); });
    getMap(section, "layouts", configuration.layouts, [](const std::string& name, const json& from, auto& into) {
        into[name].id = name;
        readLayout(from, into[name]);
    });
    if (const json* const groups = find(section, "groups"); groups && groups->is_array()) {
        configuration.groups.emplace();
        for (const json& group : *groups)
            configuration.groups->push_back({group.value("id", ""), group.value("title", "")});
    }
}

}  // namespace

std::size_t parseWithDOM(const std::string& text) {
    static simdjson::dom::parser& parser = *new simdjson::dom::parser;
    simdjson::dom::object root;
    return parser.parse(text.data(), text.size(), false).get(root) == simdjson::SUCCESS ? root.size() : 0;
}

Configuration loadByHand(const std::string& text, const std::string& brand) {
    const json document = json::parse(text);
    const json& section = document.at(brand);
    Configuration configuration;
    get(section, "application", configuration.applicationData, readApplication);
    get(section, "init", configuration.initialize, readInitialize);
    get(section, "videoPlayer", configuration.player, readPlayer);
    get(section, "appversion", configuration.appVersion, [](const json& from, AppVersion& version) {
        get(from, "latest", version.latest);
        get(from, "required", version.required);
    });
    get(section, "common", configuration.common, [](const json& from, Common& common) {
        get(from, "termsOfUse", common.termsOfUse);
        get(from, "needMoreInfo", common.needMoreInfo);
        get(from, "adChoices", common.adChoices);
        get(from, "privacyPolicy", common.privacyPolicy);
    });
    readMaps(section, configuration);
    getMap(document, "webservices", configuration.webServices, readService);
    return configuration;
}

}  // namespace quorin::bench
