#pragma once

#include "quorin/model/Configuration.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {

enum class FieldType { integer, boolean, string, strings, section, sections, map, other };

/// One field of a model: a document that holds it alone, what reading that document sets, and the archived form where
/// it differs from the document.
template <class Model>
struct FieldCase {
    FieldType type;
    std::string_view document;
    std::function<void(Model&)> set;
    std::string_view archive = document;
};

/// Every field of a model, once, with its key spelt out.
template <class Model>
std::vector<FieldCase<Model>> fieldsOf();

template <>
inline std::vector<FieldCase<Initialize>> fieldsOf() {
    using enum FieldType;
    return {{integer, R"({"configRefreshInterval":7})", [](auto& model) { model.configRefreshInterval = 7; }},
            {integer, R"({"sessionRefreshInterval":7})", [](auto& model) { model.sessionRefreshInterval = 7; }},
            {string, R"({"storeLink":"x"})", [](auto& model) { model.storeLink = "x"; }},
            {boolean, R"({"isIRateEnabled":true})", [](auto& model) { model.isIRateEnabled = true; }},
            {boolean, R"({"isRateThisAppEnabled":true})", [](auto& model) { model.isRateThisAppEnabled = true; }},
            {string, R"({"optionalUpdateLink":"x"})", [](auto& model) { model.optionalUpdateLink = "x"; }},
            {string, R"({"forceUpdateLink":"x"})", [](auto& model) { model.forceUpdateLink = "x"; }},
            {boolean, R"({"isMaintenanceState":true})", [](auto& model) { model.isMaintenanceState = true; }},
            {string, R"({"maintenanceMainMessage":"x"})", [](auto& model) { model.maintenanceMainMessage = "x"; }},
            {integer, R"({"compulsiveRewardCount":7})", [](auto& model) { model.compulsiveRewardCount = 7; }},
            {boolean, R"({"compulsiveReward":true})", [](auto& model) { model.compulsiveReward = true; }},
            {integer, R"({"geoCacheDuration":7})", [](auto& model) { model.geoCacheDuration = 7; }}};
}

template <>
inline std::vector<FieldCase<AppVersion>> fieldsOf() {
    using enum FieldType;
    return {{string, R"({"latest":"x"})", [](auto& model) { model.latest = "x"; }},
            {string, R"({"required":"x"})", [](auto& model) { model.required = "x"; }}};
}

template <>
inline std::vector<FieldCase<ApplicationData>> fieldsOf() {
    using enum FieldType;
    return {
        {string, R"({"author":"x"})", [](auto& model) { model.author = "x"; }},
        {string, R"({"copyright":"x"})", [](auto& model) { model.copyright = "x"; }},
        {string, R"({"email":"x"})", [](auto& model) { model.supportEmail = "x"; }},
        {string, R"({"link":"x"})", [](auto& model) { model.link = "x"; }},
        {other, R"({"version":{"latest":"x"}})", [](auto& model) { model.latestVersion = "x"; }, R"({"latest":"x"})"},
        {other, R"({"version":{"required":"x"}})", [](auto& model) { model.requiredVersion = "x"; },
         R"({"required":"x"})"}};
}

template <>
inline std::vector<FieldCase<Common>> fieldsOf() {
    using enum FieldType;
    return {{string, R"({"termsOfUse":"x"})", [](auto& model) { model.termsOfUse = "x"; }},
            {string, R"({"needMoreInfo":"x"})", [](auto& model) { model.needMoreInfo = "x"; }},
            {string, R"({"adChoices":"x"})", [](auto& model) { model.adChoices = "x"; }},
            {string, R"({"privacyPolicy":"x"})", [](auto& model) { model.privacyPolicy = "x"; }}};
}

template <>
inline std::vector<FieldCase<Auth>> fieldsOf() {
    using enum FieldType;
    return {{string, R"({"authZErrorMessage":"x"})", [](auto& model) { model.authZErrorMessage = "x"; }},
            {string, R"({"authUrl":"x"})", [](auto& model) { model.authUrl = "x"; }},
            {string, R"({"requestorId":"x"})", [](auto& model) { model.requestorId = "x"; }},
            {integer, R"({"initTimeout":7})", [](auto& model) { model.initTimeout = 7; }},
            {boolean, R"({"sso":true})", [](auto& model) { model.sso = true; }},
            {strings, R"({"preAuthChannels":["a","b"]})",
             [](auto& model) { model.preAuthChannels = std::vector<std::string>{"a", "b"}; }},
            {integer, R"({"promptLimit":7})", [](auto& model) { model.promptLimit = 7; }}};
}

template <>
inline std::vector<FieldCase<Profile>> fieldsOf() {
    using enum FieldType;
    return {{string, R"({"defaultAvatarId":"x"})", [](auto& model) { model.defaultAvatarId = "x"; }},
            {integer, R"({"limit":7})", [](auto& model) { model.limit = 7; }}};
}

template <>
inline std::vector<FieldCase<Player>> fieldsOf() {
    using enum FieldType;
    return {{integer, R"({"historyInterval":7})", [](auto& model) { model.historyInterval = 7; }},
            {integer, R"({"contentInterval":7})", [](auto& model) { model.contentInterval = 7; }},
            {integer, R"({"contentTimeout":7})", [](auto& model) { model.contentTimeout = 7; }},
            {boolean, R"({"hardwiredExternalDisplaysEnabled":true})",
             [](auto& model) { model.hardwiredExternalDisplaysEnabled = true; }},
            {boolean, R"({"secureExternalOutput":true})", [](auto& model) { model.secureExternalOutput = true; }},
            {section, R"({"ads":{"timeout":7}})", [](auto& model) { model.ads = Ads{.timeout = 7}; }},
            {boolean, R"({"prerollOnResume":true})", [](auto& model) { model.prerollOnResume = true; }},
            {section, R"({"continuousPlayback":{"enabled":true}})",
             [](auto& model) { model.continuousPlayback = ContinuousPlayback{.enabled = true}; }},
            {string, R"({"castRecieverId":"x"})", [](auto& model) { model.castRecieverID = "x"; }},
            {boolean, R"({"useGeoCache":true})", [](auto& model) { model.useGeoCache = true; }}};
}

template <>
inline std::vector<FieldCase<Ads>> fieldsOf() {
    using enum FieldType;
    return {{integer, R"({"adbreakUnlock":7})", [](auto& model) { model.adbreakUnlock = 7; }},
            {integer, R"({"freeTime":7})", [](auto& model) { model.freeTime = 7; }},
            {integer, R"({"overtimeTimeout":7})", [](auto& model) { model.overtimeTimeout = 7; }},
            {boolean, R"({"vpaidEnabled":true})", [](auto& model) { model.vpaidEnabled = true; }},
            {boolean, R"({"truexEnabled":true})", [](auto& model) { model.truexEnabled = true; }},
            {integer, R"({"timeout":7})", [](auto& model) { model.timeout = 7; }},
            {integer, R"({"durationBetweenAd":7})", [](auto& model) { model.durationBetweenAd = 7; }}};
}

template <>
inline std::vector<FieldCase<ContinuousPlayback>> fieldsOf() {
    using enum FieldType;
    return {{section, R"({"timing":{"sf":7}})", [](auto& model) { model.timing = Timing{.sf = 7}; }},
            {integer, R"({"playlistSize":7})", [](auto& model) { model.playlistSize = 7; }},
            {boolean, R"({"enabled":true})", [](auto& model) { model.enabled = true; }},
            {section, R"({"duration":{"lf":7}})", [](auto& model) { model.duration = Duration{.lf = 7}; }}};
}

template <>
inline std::vector<FieldCase<Timing>> fieldsOf() {
    using enum FieldType;
    return {{integer, R"({"sf":7})", [](auto& model) { model.sf = 7; }},
            {integer, R"({"lf":7})", [](auto& model) { model.lf = 7; }}};
}

template <>
inline std::vector<FieldCase<Duration>> fieldsOf() {
    using enum FieldType;
    return {{integer, R"({"sf":7})", [](auto& model) { model.sf = 7; }},
            {integer, R"({"lf":7})", [](auto& model) { model.lf = 7; }}};
}

template <>
inline std::vector<FieldCase<AnalyticSuite>> fieldsOf() {
    using enum FieldType;
    return {{string, R"({"account":"x"})", [](auto& model) { model.account = "x"; }},
            {string, R"({"id":"x"})", [](auto& model) { model.id = "x"; }},
            {boolean, R"({"logEvents":true})", [](auto& model) { model.logEvents = true; }},
            {integer, R"({"logLevel":7})", [](auto& model) { model.logLevel = 7; }},
            {string, R"({"server":"x"})", [](auto& model) { model.server = "x"; }},
            {string, R"({"sf_code":"x"})", [](auto& model) { model.sfCode = "x"; }},
            {integer, R"({"timeout":7})", [](auto& model) { model.timeout = 7; }},
            {boolean, R"({"enabled":true})", [](auto& model) { model.enabled = true; }}};
}

template <>
inline std::vector<FieldCase<ConfigLayout>> fieldsOf() {
    using enum FieldType;
    return {{integer, R"({"initialRequest":7})", [](auto& model) { model.initialRequest = 7; }},
            {integer, R"({"paginationSize":7})", [](auto& model) { model.paginationSize = 7; }},
            {boolean, R"({"kidSafeDisplayCategoryMenu":true})",
             [](auto& model) { model.kidSafeDisplayCategoryMenu = true; }},
            {integer, R"({"heroCycleDuration":7})", [](auto& model) { model.heroCycleDuration = 7; }},
            {integer, R"({"successDuration":7})", [](auto& model) { model.successDuration = 7; }}};
}

template <>
inline std::vector<FieldCase<Configuration>> fieldsOf() {
    using enum FieldType;
    return {
        {map, R"({"webservices":{"a":{"url":{"value":"u"},"method":"GET"}}})",
         [](Configuration& model) { model.webServices = {{"a", WebService{.name = "a", .url = "u"}}}; },
         R"({"webservices":{"a":{"Content-Type":"application/x-www-form-urlencoded","method":"GET","name":"a","url":"u"}}})"},
        {sections, R"({"groups":[{"id":"g","title":"t"}]})",
         [](Configuration& model) { model.groups = std::vector<Group>{Group{"g", "t"}}; }},
        {section, R"({"common":{"adChoices":"x"}})",
         [](Configuration& model) { model.common = Common{.adChoices = "x"}; }},
        {section, R"({"appversion":{"latest":"x"}})",
         [](Configuration& model) { model.appVersion = AppVersion{.latest = "x"}; }},
        {map, R"({"analytics":{"a":{"id":"x"}}})",
         [](Configuration& model) { model.analytics = {{"a", AnalyticSuite{.id = "x"}}}; }},
        {section, R"({"init":{"storeLink":"x"}})",
         [](Configuration& model) { model.initialize = Initialize{.storeLink = "x"}; }},
        {section, R"({"auth":{"sso":true}})", [](Configuration& model) { model.auth = Auth{.sso = true}; }},
        {section, R"({"videoPlayer":{"useGeoCache":true}})",
         [](Configuration& model) { model.player = Player{.useGeoCache = true}; }},
        {other, R"({"layouts":{"home":{"paginationSize":7}}})",
         [](Configuration& model) { model.layouts = {{"home", ConfigLayout{.id = "home", .paginationSize = 7}}}; },
         R"({"layouts":{"home":{"id":"home","paginationSize":7}}})"},
        {section, R"({"profile":{"limit":7}})", [](Configuration& model) { model.profile = Profile{.limit = 7}; }},
        {section, R"({"application":{"author":"x"}})",
         [](Configuration& model) { model.applicationData = ApplicationData{.author = "x"}; }},
        {map, R"({"features":{"chat":{"enabled":true}}})",
         [](Configuration& model) { model.features = {{"chat", Feature{"chat", DocumentMap{{"enabled", true}}}}}; },
         R"({"features":{"chat":{"name":"chat","params":{"enabled":true}}}})"}};
}

}  // namespace quorin
