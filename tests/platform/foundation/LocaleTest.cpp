#include "quorin/platform/foundation/Locale.hpp"

#include "tests/support/Environment.hpp"

#include <gtest/gtest.h>

namespace quorin::foundation {
namespace {

using support::Environment;

using Setting = std::optional<std::string>;

std::string localeWith(Setting all, Setting messages, Setting lang) {
    const Environment first("LC_ALL", all);
    const Environment second("LC_MESSAGES", messages);
    const Environment third("LANG", lang);
    return currentLocale();
}

TEST(Locale, IsTheSettingWithoutCharsetAndModifier) {
    EXPECT_EQ(localeWith("en_US.UTF-8", {}, {}), "en_US");
    EXPECT_EQ(localeWith("de_DE@euro", {}, {}), "de_DE");
    EXPECT_EQ(localeWith("sr_RS.UTF-8@latin", {}, {}), "sr_RS");
    EXPECT_EQ(localeWith("fr", {}, {}), "fr");
}

TEST(Locale, IsTakenFromTheFirstVariableThatIsNotEmpty) {
    EXPECT_EQ(localeWith("de_DE", "fr_FR", "it_IT"), "de_DE");
    EXPECT_EQ(localeWith({}, "fr_FR", "it_IT"), "fr_FR");
    EXPECT_EQ(localeWith("", "", "it_IT"), "it_IT");
    EXPECT_EQ(localeWith("C", {}, "it_IT"), "en_US_POSIX");
}

TEST(Locale, IsPosixWhereNoLanguageIsChosen) {
    for (const char* setting : {"C", "POSIX", "C.UTF-8", "", ".UTF-8"}) {
        EXPECT_EQ(localeWith(setting, {}, {}), "en_US_POSIX") << setting;
    }
    EXPECT_EQ(localeWith({}, {}, {}), "en_US_POSIX");
}

TEST(Locale, IsPosixForWhatIsNoIdentifier) {
    for (const char* setting : {"en_US\r\nX: y", "/usr/share/locale/en", "en US", "\xc3\xa4"}) {
        EXPECT_EQ(localeWith(setting, {}, {}), "en_US_POSIX") << setting;
    }
}

}  // namespace
}  // namespace quorin::foundation
