#include "quorin/core/ConfigurationManagerError.hpp"
#include "quorin/platform/rx/Error.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

constexpr std::pair<ConfigurationManagerError::Case, const char*> rows[] = {
    {ConfigurationManagerError::invalidConfigurationParams, "invalidConfigurationParams"},
    {ConfigurationManagerError::invalidConfigurationResponse, "invalidConfigurationResponse"},
    {ConfigurationManagerError::initializationError, "initializationError"},
    {ConfigurationManagerError::notInitialized, "notInitialized"},
    {ConfigurationManagerError::invalidBrand, "invalidBrand"},
    {ConfigurationManagerError::invalidParams, "invalidParams"},
    {ConfigurationManagerError::unsupportedMethod, "unsupportedMethod"},
};

TEST(ConfigurationManagerError, IsItsNameAndItsPosition) {
    int position = 0;
    for (const auto& [value, name] : rows) {
        const ConfigurationManagerError error = value;
        EXPECT_EQ(error.rawValue(), name);
        EXPECT_EQ(ConfigurationManagerError::fromRawValue(name), error);
        EXPECT_EQ(error.code(), position);
        EXPECT_EQ(std::hash<ConfigurationManagerError>()(error), static_cast<std::size_t>(position++));
    }
}

TEST(ConfigurationManagerError, IsMadeFromExactNamesOnly) {
    EXPECT_EQ(ConfigurationManagerError::fromRawValue("NotInitialized"), std::nullopt);
    EXPECT_EQ(ConfigurationManagerError::fromRawValue(""), std::nullopt);
    EXPECT_EQ(ConfigurationManagerError::fromRawValue("notInitialized "), std::nullopt);
}

TEST(ConfigurationManagerError, EqualsItselfOnly) {
    for (const auto& left : rows) {
        for (const auto& right : rows)
            EXPECT_EQ(ConfigurationManagerError(left.first) == ConfigurationManagerError(right.first),
                      left.second == right.second);
    }
}

TEST(ConfigurationManagerError, NamesItsDomain) {
    EXPECT_EQ(ConfigurationManagerError::domain(), "QuorinConfigManager.ConfigurationManagerError");
}

TEST(ConfigurationManagerError, CanEndAHostsStream) {
    const rx::Error error = ConfigurationManagerError(ConfigurationManagerError::invalidBrand);
    ASSERT_NE(error.as<ConfigurationManagerError>(), nullptr);
    EXPECT_EQ(*error.as<ConfigurationManagerError>(), ConfigurationManagerError::invalidBrand);
    EXPECT_EQ(error.description(), "invalidBrand");
}

}  // namespace
}  // namespace quorin
