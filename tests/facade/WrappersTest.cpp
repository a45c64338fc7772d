#include "quorin/facade/KVTAnonymousBind.hpp"
#include "quorin/facade/KVTConfiguration.hpp"
#include "quorin/platform/foundation/File.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/table/Archivable.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

static_assert(Archivable<KVTConfiguration> && Archivable<KVTFeature> && Archivable<KVTWebService>
              && Archivable<KVTAnonymousBind> && Archivable<KVTApplicationData>);

DocumentMap object(std::string_view text) { return *json::parse(text).value()->asObject(); }

Configuration configurationOf(std::string_view text) { return *Configuration::fromJSON(object(text)); }

constexpr std::string_view document = R"({
    "application": {"author": "A", "copyright": "C", "link": "L", "email": "E",
                    "version": {"latest": "2", "required": "1"}},
    "features": {"chat": {"on": true}, "search": {"deep": [1]}},
    "webservices": {"login": {"name": "login", "method": "post", "url": {"value": "https://a.example/login"},
                              "header": {"Content-Type": "application/json", "Accept": "application/xml"}},
                    "search": {"name": "search", "method": "get", "url": {"value": "https://a.example/s"}}}})";

TEST(KVTConfiguration, HasNoBrandWhereTheConfigurationHasNone) {
    EXPECT_EQ(KVTConfiguration(Configuration()).brand(), KVTBrand::undefined);
    EXPECT_EQ(KVTConfiguration(Configuration()).brand().rawValue(), -1);
}

TEST(KVTConfiguration, ShowsTheStampOfTheLoad) {
    const KVTConfiguration wrapper(Configuration{.brand = Brand::pellow, .device = "D", .version = "2.0"});
    EXPECT_EQ(wrapper.brand(), KVTBrand::pellow);
    EXPECT_EQ(wrapper.device(), "D");
    EXPECT_EQ(wrapper.version(), "2.0");
}

TEST(KVTConfiguration, HasTheKeysOfTheWrappedMaps) {
    const KVTConfiguration wrapper(configurationOf(document));
    ASSERT_EQ(wrapper.webServices()->size(), wrapper.configuration().webServices->size());
    for (const auto& [name, service] : *wrapper.configuration().webServices)
        EXPECT_EQ(wrapper.webServices()->at(name).webService(), service);
    ASSERT_EQ(wrapper.features()->size(), 2U);
    EXPECT_EQ(wrapper.features()->at("chat").feature(), wrapper.configuration().features->at("chat"));
}

TEST(KVTConfiguration, HasNoSectionsWhereTheConfigurationHasNone) {
    const KVTConfiguration wrapper{Configuration()};
    EXPECT_FALSE(wrapper.webServices() || wrapper.features() || wrapper.applicationData() || wrapper.device()
                 || wrapper.version());
}

TEST(KVTConfiguration, LeavesItsPartsBehind) {
    std::optional<KVTConfiguration> wrapper(configurationOf(document));
    const auto features = *wrapper->features();
    const auto application = *wrapper->applicationData();
    wrapper.reset();
    EXPECT_EQ(features.at("search").name(), "search");
    EXPECT_EQ(application.author(), "A");
}

TEST(KVTConfiguration, OfNothingIsOneWithoutSections) {
    EXPECT_EQ(KVTConfiguration(std::shared_ptr<const Configuration>()).configuration(), Configuration());
}

TEST(KVTFeature, ShowsNameAndParameters) {
    const KVTFeature feature = KVTConfiguration(configurationOf(document)).features()->at("search");
    EXPECT_EQ(feature.name(), "search");
    EXPECT_EQ(feature.params(), object(R"({"deep": [1]})"));
    EXPECT_FALSE(KVTFeature(Feature()).name() || KVTFeature(Feature()).params());
}

TEST(KVTWebService, ShowsTheEndpoint) {
    const KVTWebService service = KVTConfiguration(configurationOf(document)).webServices()->at("login");
    EXPECT_EQ(service.name(), "login");
    EXPECT_EQ(service.url(), "https://a.example/login");
    EXPECT_EQ(service.method(), KVTHTTPMethod::POST);
    EXPECT_EQ(service.contentTypeHeader(), KVTContentType::JSON);
    EXPECT_EQ(service.acceptHeader(), KVTContentType::XML);
    EXPECT_EQ(service.headers(), service.webService().headers());
    EXPECT_EQ(service.headers().at("Accept"), "application/xml");
}

TEST(KVTWebService, HasAnUndefinedAcceptWhereTheServiceHasNone) {
    EXPECT_EQ(KVTWebService(WebService()).acceptHeader(), KVTContentType::undefined);
}

TEST(KVTApplicationData, ShowsEveryText) {
    const KVTApplicationData application = *KVTConfiguration(configurationOf(document)).applicationData();
    EXPECT_EQ(application.author(), "A");
    EXPECT_EQ(application.copyright(), "C");
    EXPECT_EQ(application.link(), "L");
    EXPECT_EQ(application.supportEmail(), "E");
    EXPECT_EQ(application.latestVersion(), "2");
    EXPECT_EQ(application.requiredVersion(), "1");
}

TEST(KVTAnonymousBind, ShowsProfileAndToken) {
    const KVTAnonymousBind bind("p", "token");
    EXPECT_EQ(bind.profileID(), "p");
    EXPECT_EQ(bind.profileJWT(), "token");
    EXPECT_EQ(bind.anonymousBind(), (AnonymousBind{.profileID = "p", .profileJWT = "token"}));
}

/// What holds of any wrapper: its archive is the native value's, and comes back as the same value.
template <class Facade, class Native>
void expectTheArchiveOf(const Native& native) {
    const Facade wrapper(native);
    EXPECT_EQ(wrapper.encode(), native.encode());
    EXPECT_EQ(Facade::fromEncoded(wrapper.encode())->encode(), Native::fromEncoded(native.encode())->encode());
}

TEST(Wrappers, HaveTheArchiveOfWhatTheyWrap) {
    const Configuration configuration = configurationOf(document);
    expectTheArchiveOf<KVTConfiguration>(configuration);
    expectTheArchiveOf<KVTFeature>(configuration.features->at("search"));
    expectTheArchiveOf<KVTWebService>(configuration.webServices->at("login"));
    expectTheArchiveOf<KVTApplicationData>(*configuration.applicationData);
    expectTheArchiveOf<KVTAnonymousBind>(AnonymousBind{.profileID = "p", .profileJWT = "t"});
}

TEST(Wrappers, AreAbsentWhereTheNativeValueIs) {
    const DocumentMap nothing = object(R"({"profileId": 1, "name": 2})");
    EXPECT_FALSE(KVTAnonymousBind::fromEncoded(nothing));
    EXPECT_FALSE(KVTWebService::fromEncoded(nothing));
}

TEST(Wrappers, AreReferences) {
    const KVTFeature feature{Feature{.name = "chat"}};
    const KVTFeature same = feature;
    EXPECT_EQ(&same.feature(), &feature.feature());
}

}  // namespace
}  // namespace quorin
