#pragma once

#include "quorin/services/requests/Skell.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/services/requests/RecordingParams.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin {

/// A manager that was handed these facts, and keeps nothing beyond the test.
class Building : public testing::Test {
protected:
    using Instance = ConfigurationManager::Instance;

    Building() { manager_.setUserZ("+0100"); }

    static Platform platform() {
        Platform platform = phone(std::string(morr::memoryPath));
        platform.transport.maxBody = 4321;
        return platform;
    }

    Skell built(BuildArguments arguments) const { return Skell::build(std::move(arguments), manager_); }

    Skell built(RecordingParams::Answers answers, const WebService& service = {}) const {
        return Skell::build(RecordingParams(std::move(answers)), service, manager_);
    }

    /// What the manager says of the app where nobody says anything else.
    static constexpr const char* userAgent =
        "Sample/2.4(iPhone9,1; cpu iOS 10_3_1 like mac os x; en_us) CFNetwork/1.0 Darwin/2.0";

    Instance manager_{platform()};
};

}  // namespace quorin
