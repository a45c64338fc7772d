#pragma once

#include "quorin/facade/Wrapper.hpp"
#include "quorin/model/ApplicationData.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// What the app tells about itself, as an object.
class KVTApplicationData : public Wrapper<ApplicationData> {
public:
    static constexpr std::string_view objectName = "KVTApplicationData";
    using Wrapper::Wrapper;

    /// Of what `encode` wrote; empty where that makes none.
    static std::optional<KVTApplicationData> fromEncoded(const DocumentMap& encoded) {
        return read<KVTApplicationData>(encoded);
    }

    const ApplicationData& applicationData() const { return *native(); }

    std::optional<std::string> author() const { return applicationData().author; }
    std::optional<std::string> copyright() const { return applicationData().copyright; }
    std::optional<std::string> link() const { return applicationData().link; }
    std::optional<std::string> supportEmail() const { return applicationData().supportEmail; }
    std::optional<std::string> latestVersion() const { return applicationData().latestVersion; }
    std::optional<std::string> requiredVersion() const { return applicationData().requiredVersion; }
};

}  // namespace quorin

#pragma GCC visibility pop
