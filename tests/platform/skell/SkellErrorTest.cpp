#include "quorin/platform/skell/SkellError.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace quorin::skell {
namespace {

TEST(SkellError, NamesItsKinds) {
    EXPECT_EQ(SkellError::name(SkellError::Kind::invalidURL), "invalidURL");
    EXPECT_EQ(SkellError::name(SkellError::Kind::cancelled), "cancelled");
    EXPECT_EQ(SkellError::name(SkellError::Kind::decoding), "decoding");
}

TEST(SkellError, IsDescribedByKindAndMessage) {
    const SkellError error{.kind = SkellError::Kind::timeout, .message = "too slow"};
    EXPECT_EQ(error.description(), "SkellError timeout: too slow");
}

TEST(Redacted, LeavesSchemeHostPortAndPath) {
    EXPECT_EQ(redacted("https://h.example:81/a/b"), "https://h.example:81/a/b");
    EXPECT_EQ(redacted("http://[::1]:80/"), "http://[::1]:80/");
    EXPECT_EQ(redacted("http://[::1]/@me"), "http://[::1]/@me");
    EXPECT_EQ(redacted(""), "");
}

TEST(Redacted, DropsUserInfoQueryAndFragment) {
    EXPECT_EQ(redacted("https://user:pass@h/a?b=c#d"), "https://h/a");
    EXPECT_EQ(redacted("https://u@v:w@h/"), "https://h/");
    EXPECT_EQ(redacted("https://h#d?e"), "https://h");
    EXPECT_EQ(redacted("https://[::1]:secret@h/"), "https://h/");
}

TEST(Redacted, LeavesNothingOfSecretsInBrokenURLs) {
    for (const std::string_view url :
         {"user:secret@h/", "http:/user:secret@h/", "http:user:secret@h", "//user:secret@h", "http://user:secret?x@h/",
          "http://user:secret/x@h/", "http:///user:secret@h/", "http://user:secret\\@h/", " http://user:secret@h/"}) {
        EXPECT_EQ(redacted(url).find("secret"), std::string_view::npos) << redacted(url);
    }
}

TEST(Redacted, HasOnlyPrintableCharacters) { EXPECT_EQ(redacted("http://h/a\n\xC3\xA9"), "http://h/a???"); }

}  // namespace
}  // namespace quorin::skell
