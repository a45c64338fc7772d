#include "quorin/facade/c/configuration.h"
#include "quorin/facade/c/integers.h"
#include "quorin/facade/c/map.h"
#include "quorin/facade/c/web_service.h"

#include "tests/facade/c/Host.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin {
namespace {

using host::text;
using host::textWith;

class Configured : public testing::Test {
protected:
    Configured() {
        EXPECT_EQ(quorin_configuration_from_encoded(quorin_text_of(R"({
            "application": {"author": "A", "copyright": "C", "link": "L", "email": "E", "latest": "2", "required": "1"},
            "features": {"chat": {"name": "chat", "params": {"on": true}}},
            "webservices": {"login": {"name": "login", "url": "https://a.example/{id}", "method": "POST",
                                      "Content-Type": "application/json"}}})"),
                                                    &configuration_),
                  QUORIN_OK);
    }
    ~Configured() override { quorin_release(configuration_); }

    /// The one object of a section.
    quorin_handle only(quorin_status (*section)(quorin_handle, quorin_handle*)) const {
        quorin_handle map = QUORIN_NONE, object = QUORIN_NONE;
        EXPECT_EQ(section(configuration_, &map), QUORIN_OK);
        EXPECT_EQ(quorin_map_object(map, 0, &object), QUORIN_OK);
        quorin_release(map);
        return object;
    }

    quorin_handle configuration_ = QUORIN_NONE;
};

TEST_F(Configured, HasNoStampThatNobodyGave) {
    std::int32_t brand = 7;
    EXPECT_EQ(quorin_configuration_brand(configuration_, &brand), QUORIN_OK);
    EXPECT_EQ(brand, QUORIN_BRAND_UNDEFINED);
    EXPECT_EQ(textWith(quorin_configuration_device, configuration_).first, QUORIN_ABSENT);
    EXPECT_EQ(textWith(quorin_configuration_version, configuration_).first, QUORIN_ABSENT);
}

TEST_F(Configured, ShowsAnEndpoint) {
    const quorin_handle service = only(quorin_configuration_web_services);
    EXPECT_EQ(text(quorin_web_service_name, service), "login");
    EXPECT_EQ(text(quorin_web_service_url, service), "https://a.example/{id}");
    std::int32_t integer = 7;
    quorin_web_service_method(service, &integer);
    EXPECT_EQ(integer, QUORIN_HTTP_METHOD_POST);
    quorin_web_service_content_type_header(service, &integer);
    EXPECT_EQ(integer, QUORIN_CONTENT_TYPE_JSON);
    quorin_web_service_accept_header(service, &integer);
    EXPECT_EQ(integer, QUORIN_CONTENT_TYPE_UNDEFINED);
    quorin_release(service);
}

TEST_F(Configured, ShowsTheHeadersOfAnEndpointAsAMapOfTexts) {
    const quorin_handle service = only(quorin_configuration_web_services);
    quorin_handle headers = QUORIN_NONE, object = QUORIN_NONE;
    std::uint64_t number = 7;
    EXPECT_EQ(quorin_web_service_headers(service, &headers), QUORIN_OK);
    EXPECT_EQ(quorin_map_count(headers, &number), QUORIN_OK);
    EXPECT_EQ(number, 1U);
    EXPECT_EQ(text(quorin_map_name, headers, std::uint64_t{0}), "Content-Type");
    EXPECT_EQ(text(quorin_map_text, headers, std::uint64_t{0}), "application/json");
    EXPECT_EQ(quorin_map_object(headers, 0, &object), QUORIN_ABSENT);
    EXPECT_EQ(textWith(quorin_map_text, headers, std::uint64_t{1}).first, QUORIN_ABSENT);
    EXPECT_EQ(textWith(quorin_map_name, headers, std::uint64_t{UINT64_MAX}).first, QUORIN_ABSENT);
    EXPECT_EQ(quorin_map_find(headers, quorin_text_of("content-type"), &number), QUORIN_ABSENT);
    EXPECT_EQ(quorin_map_find(headers, quorin_text_of("Content-Type"), &number), QUORIN_OK);
    EXPECT_EQ(number, 0U);
    quorin_release(headers);
    quorin_release(service);
}

TEST_F(Configured, ShowsAFeatureThatOutlivesIt) {
    const quorin_handle feature = only(quorin_configuration_features);
    quorin_release(configuration_);
    EXPECT_EQ(text(quorin_feature_name, feature), "chat");
    EXPECT_EQ(text(quorin_feature_params, feature), R"({"on":true})");
    quorin_release(feature);
}

TEST_F(Configured, ShowsTheApplication) {
    quorin_handle application = QUORIN_NONE;
    EXPECT_EQ(quorin_configuration_application_data(configuration_, &application), QUORIN_OK);
    EXPECT_EQ(text(quorin_application_data_author, application), "A");
    EXPECT_EQ(text(quorin_application_data_copyright, application), "C");
    EXPECT_EQ(text(quorin_application_data_link, application), "L");
    EXPECT_EQ(text(quorin_application_data_support_email, application), "E");
    EXPECT_EQ(text(quorin_application_data_latest_version, application), "2");
    EXPECT_EQ(text(quorin_application_data_required_version, application), "1");
    quorin_release(application);
}

/// What holds of every archive: it makes the same object again.
void expectToComeBack(quorin_status (*encode)(quorin_handle, char*, std::uint64_t, std::uint64_t*),
                      quorin_status (*read)(quorin_text, quorin_handle*), quorin_handle object) {
    const std::string archive = text(encode, object);
    quorin_handle again = QUORIN_NONE;
    EXPECT_EQ(read({archive.data(), archive.size()}, &again), QUORIN_OK) << archive;
    EXPECT_EQ(text(encode, again), archive);
    quorin_release(again);
    quorin_release(object);
}

TEST_F(Configured, ComesBackFromTheArchiveWithAllItsParts) {
    quorin_handle application = QUORIN_NONE, copy = QUORIN_NONE;
    quorin_configuration_application_data(configuration_, &application);
    quorin_copy(configuration_, &copy);
    expectToComeBack(quorin_application_data_encode, quorin_application_data_from_encoded, application);
    expectToComeBack(quorin_feature_encode, quorin_feature_from_encoded, only(quorin_configuration_features));
    expectToComeBack(quorin_web_service_encode, quorin_web_service_from_encoded,
                     only(quorin_configuration_web_services));
    expectToComeBack(quorin_configuration_encode, quorin_configuration_from_encoded, copy);
}

}  // namespace
}  // namespace quorin
