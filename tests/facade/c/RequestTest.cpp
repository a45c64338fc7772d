#include "quorin/facade/c/quorin.h"
#include "quorin/platform/ombrith/InstrumentationCodes.hpp"

#include "tests/facade/c/InstalledHost.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace quorin {
namespace {

using host::text;
using host::textWith;

TEST_F(Host, BuildsTheRequestOfAnEndpoint) {
    EXPECT_EQ(inHost([](const App& app) {
                  const quorin_handle service = app.serviceNamed("login");
                  const quorin_pair mapping{quorin_text_of("{id}"), quorin_text_of("7")};
                  const quorin_pair query{quorin_text_of("q"), quorin_text_of("a b")};
                  const quorin_pair header{quorin_text_of("X-One"), quorin_text_of("1")};
                  quorin_handle params = QUORIN_NONE, request = QUORIN_NONE, headers = QUORIN_NONE;
                  quorin_params_make(&params);
                  quorin_params_set_url_mapping(params, &mapping, 1);
                  quorin_params_set_query_parameters(params, &query, 1);
                  quorin_params_set_headers(params, &header, 1);
                  quorin_params_set_dictionary_representation(params, quorin_text_of(R"({"b": 1, "a": [true]})"));
                  quorin_params_set_remove_user_agent(params, 1);
                  quorin_request_build(params, service, &request);
                  quorin_request_headers(request, &headers);
                  std::uint64_t position = 0;
                  std::int32_t method = 0;
                  quorin_request_method(request, &method);
                  return text(quorin_request_url, request) + ' ' + text(quorin_request_body, request) + ' '
                         + std::to_string(method) + ' '
                         + quorin_status_name(quorin_map_find(headers, quorin_text_of("X-One"), &position)) + ' '
                         + quorin_status_name(quorin_map_find(headers, quorin_text_of("User-Agent"), &position));
              }),
              R"(http://h.example/7?q=a%20b {"a":[true],"b":1} 5 QUORIN_OK QUORIN_ABSENT)");
}

TEST_F(Host, BuildsTheRequestOfAURL) {
    EXPECT_EQ(inHost([](const App&) {
                  quorin_handle params = QUORIN_NONE, request = QUORIN_NONE;
                  quorin_params_make(&params);
                  quorin_params_set_query_parameters(params, nullptr, 0);
                  quorin_request_build_url(params, quorin_text_of("http://h.example/x"), QUORIN_HTTP_METHOD_PUT,
                                           &request);
                  std::int32_t method = 0;
                  quorin_request_method(request, &method);
                  return text(quorin_request_url, request) + ' ' + std::to_string(method) + ' '
                         + quorin_status_name(textWith(quorin_request_body, request).first);
              }),
              "http://h.example/x 6 QUORIN_ABSENT");
}

TEST_F(Host, PassesTheGuardWithAConfigurationAndValidParameters) {
    EXPECT_EQ(inHost([](const App& app) {
                  const quorin_handle service = app.serviceNamed("login");
                  quorin_handle params = QUORIN_NONE, error = 7;
                  quorin_params_make(&params);
                  const auto refused = quorin_web_service_configuration_guard(service, params, &error);
                  quorin_params_set_has_valid_params(params, 1);
                  const auto passed = quorin_web_service_configuration_guard(service, params, &error);
                  return std::string(quorin_status_name(refused)) + ' ' + quorin_status_name(passed) + ' '
                         + std::to_string(error);
              }),
              "QUORIN_FAILED QUORIN_OK 0");
}

TEST_F(Host, SendsTheRequestThatItDescribes) {
    EXPECT_EQ(inHost([](const App& app) {
                  quorin_handle request = QUORIN_NONE, stream = QUORIN_NONE;
                  quorin_request_create(QUORIN_HTTP_METHOD_POST, quorin_text_of(app.server().url("/teapot").c_str()),
                                        &request);
                  quorin_request_set_header(request, quorin_text_of("X-One"), quorin_text_of("1"));
                  quorin_request_set_header(request, quorin_text_of("X-Two"), quorin_text_of("2"));
                  quorin_request_set_header(request, quorin_text_of("X-Two"), quorin_text_of(nullptr));
                  quorin_request_set_body(request, QUORIN_CONTENT_TYPE_URL_ENCODED, quorin_text_of(R"({"a": "b c"})"));
                  quorin_request_send(request, &stream);
                  App::valueOf(stream);
                  const auto received = app.server().requests().at(0);
                  return received.method + ' ' + received.body + ' ' + received.header("x-one").value_or("none") + ' '
                         + received.header("x-two").value_or("none");
              }),
              "POST a=b+c 1 none");
}

TEST_F(Host, ReadsTheResponse) {
    EXPECT_EQ(inHost([](const App& app) {
                  const std::string url = app.server().url("/teapot");
                  quorin_handle request = QUORIN_NONE, stream = QUORIN_NONE, headers = QUORIN_NONE;
                  quorin_request_create(QUORIN_HTTP_METHOD_GET, quorin_text_of(url.c_str()), &request);
                  quorin_request_send(request, &stream);
                  const quorin_handle response = App::valueOf(stream);
                  std::int32_t status = 0;
                  std::uint64_t fields = 0;
                  quorin_response_status(response, &status);
                  quorin_response_headers(response, &headers);
                  quorin_map_count(headers, &fields);
                  return std::to_string(status) + ' ' + text(quorin_response_body, response) + ' '
                         + text(quorin_response_header, response, quorin_text_of("CONTENT-length")) + ' '
                         + (fields > 0 ? "fields " : "none ")
                         + (text(quorin_response_url, response) == url ? "there" : "elsewhere");
              }),
              "418 short and stout 15 fields there");
}

TEST_F(Host, SendsBytesAsTheyStand) {
    EXPECT_EQ(inHost([](const App& app) {
                  quorin_handle request = QUORIN_NONE, stream = QUORIN_NONE;
                  quorin_request_create(QUORIN_HTTP_METHOD_PUT, quorin_text_of(app.server().url("/teapot").c_str()),
                                        &request);
                  quorin_request_set_bytes(request, {"a\0b", 3});
                  quorin_request_send(request, &stream);
                  App::valueOf(stream);
                  return std::string(app.server().requests().at(0).body == std::string("a\0b", 3) ? "as they stand"
                                                                                                  : "otherwise");
              }),
              "as they stand");
}

TEST_F(Host, HearsWhyARequestIsNotSent) {
    EXPECT_EQ(inHost([](const App&) {
                  quorin_handle request = QUORIN_NONE, stream = QUORIN_NONE, value = QUORIN_NONE, error = QUORIN_NONE;
                  quorin_request_create(QUORIN_HTTP_METHOD_GET, quorin_text_of("ftp://h.example/?secret"), &request);
                  quorin_request_send(request, &stream);
                  quorin_observable_wait(stream, &value, &error);
                  std::int32_t status = 7;
                  return text(quorin_error_kind, error) + ' ' + text(quorin_error_url, error) + ' '
                         + (text(quorin_error_message, error).empty() ? "silent " : "worded ")
                         + quorin_status_name(quorin_error_status(error, &status)) + ' '
                         + quorin_status_name(quorin_error_code(error, &status));
              }),
              "invalidURL ftp://h.example/ worded QUORIN_ABSENT QUORIN_ABSENT");
}

TEST_F(Host, ReadsTheCodesOfAnErrorOfTheLibrary) {
    EXPECT_EQ(inHost([](const App&) {
                  quorin_handle service = QUORIN_NONE, params = QUORIN_NONE, error = QUORIN_NONE;
                  quorin_web_service_from_encoded(quorin_text_of(R"({"name":"a","url":"u","method":"GET",
                      "Content-Type":"application/json"})"),
                                                  &service);
                  quorin_params_make(&params);
                  const auto status = quorin_web_service_configuration_guard(service, params, &error);
                  std::int32_t component = -1, element = -1, code = -1;
                  quorin_error_component(error, &component);
                  quorin_error_element(error, &element);
                  quorin_error_code(error, &code);
                  return std::string(quorin_status_name(status)) + ' ' + std::to_string(component) + ' '
                         + std::to_string(element) + ' ' + std::to_string(code) + ' '
                         + quorin_status_name(textWith(quorin_error_kind, error).first);
              }),
              "QUORIN_FAILED " + std::to_string(InstrumentationCodes::Component::configurationManager) + ' '
                  + std::to_string(InstrumentationCodes::Element::configurationGuard) + ' '
                  + std::to_string(InstrumentationCodes::ErrorCode::configNotInitialized) + " QUORIN_ABSENT");
}

TEST_F(Host, ChangesARequestBehindOneHandleAlone) {
    EXPECT_EQ(inHost([](const App&) {
                  quorin_handle request = QUORIN_NONE, copy = QUORIN_NONE;
                  quorin_request_create(QUORIN_HTTP_METHOD_POST, quorin_text_of("http://h.example/"), &request);
                  quorin_copy(request, &copy);
                  quorin_request_set_bytes(request, quorin_text_of("body"));
                  return text(quorin_request_body, request) + ' '
                         + quorin_status_name(textWith(quorin_request_body, copy).first);
              }),
              "body QUORIN_ABSENT");
}

TEST_F(Host, SurvivesAReleaseWhileAnotherThreadSetsHeaders) {
    EXPECT_EQ(
        inHost([](const App&) {
            for (int turn = 0; turn < 200; ++turn) {
                quorin_handle request = QUORIN_NONE;
                quorin_request_create(QUORIN_HTTP_METHOD_GET, quorin_text_of("http://h.example/"), &request);
                std::thread setting([request] {
                    while (quorin_request_set_header(request, quorin_text_of("A"), quorin_text_of("b")) == QUORIN_OK) {
                    }
                });
                quorin_release(request);
                setting.join();
            }
            return std::string("survived");
        }),
        "survived");
}

}  // namespace
}  // namespace quorin
