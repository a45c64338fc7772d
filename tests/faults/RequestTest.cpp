// A request is built whole or not at all.
#include "tests/faults/EachAllocation.hpp"
#include "tests/services/requests/Building.hpp"
#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace quorin {
namespace {

using faults::Failed;

class RequestWithoutMemory : public Building {
protected:
    /// How many allocations a request takes, each of which failed.
    static long failEachOf(const std::function<Skell()>& build) {
        const Skell expected = build();
        return faults::failEachAndKeepNothing([&] { expectSame(build(), expected); });
    }

    static void expectSame(const Skell& built, const Skell& expected) {
        EXPECT_EQ(built.url, expected.url);
        EXPECT_EQ(built.headers, expected.headers);
        EXPECT_EQ(built.body ? built.body->text() : "none", expected.body ? expected.body->text() : "none");
    }

    /// Of a content that has everything, in this media type.
    Skell full(const std::string& contentType) const {
        return built({.requestURL = "https://h.example/profiles/{profile}/of/the/account",
                      .requestMethod = HTTPMethod::POST,
                      .requestHeaders = {{"Content-Type", contentType}, {"Accept", "application/json, text/plain"}},
                      .urlMapping = StringMap{{"{profile}", "a profile with a long name"}},
                      .queryParameters = StringMap{{"page", "a blank and an umlaut: \xC3\xA4"}, {"size", "20"}},
                      .dictionaryRepresentation = content_});
    }

    const DocumentMap content_ = object(R"({"name":"a text that is long enough","list":[1,2.5,{"a":null}]})");
};

TEST_F(RequestWithoutMemory, HasItsJSONOrIsNot) {
    EXPECT_GT(failEachOf([this] { return full("application/json"); }), 10);
}

TEST_F(RequestWithoutMemory, HasItsFormOrIsNot) {
    EXPECT_GT(failEachOf([this] { return full("application/x-www-form-urlencoded"); }), 10);
}

TEST_F(RequestWithoutMemory, HasItsXMLOrIsNot) {
    EXPECT_GT(failEachOf([this] { return full("application/xml"); }), 10);
}

TEST_F(RequestWithoutMemory, HasWhatItsServiceSaysOrIsNot) {
    const WebService service{.name = "login",
                             .url = "https://h.example/login/{id}/of/somebody",
                             .method = HTTPMethod::POST,
                             .contentTypeHeader = ContentType::JSON};
    const RecordingParams::Answers answers{.headers = StringMap{{"X-Own", "a header with a long value"}},
                                           .dictionaryRepresentation = content_,
                                           .mapping = StringMap{{"{id}", "an identifier that is long"}},
                                           .query = StringMap{{"a", "b"}}};
    EXPECT_GT(failEachOf([&] { return built(answers, service); }), 10);
}

}  // namespace
}  // namespace quorin
