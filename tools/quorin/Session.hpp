#pragma once

#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/core/QuorinConfigManagerVersion.h"

#include "Output.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace quorin::tool {

/// The options of every command.
struct GlobalOptions {
    std::optional<std::string> store{};
    std::string bundleName = "quorin";
    std::string bundleVersion = QuorinConfigManagerVersionString;
    std::optional<std::string> deviceModel{};
    std::optional<std::string> systemName{};
    std::optional<std::string> systemVersion{};
    std::optional<std::string> locale{};
    double timeout = 30;  ///< seconds
    std::size_t maxBody = 16777216;
    std::optional<std::string> caFile{};
};

/// What one run of a command works with. The manager is built when a command first asks for it.
class Session {
public:
    GlobalOptions options{};
    Output output{};
    int trouble = 1;  ///< the least exit status of a failure that is told in words

    ConfigurationManager::Instance& manager();

    /// Tells on standard error what is wrong with the store, if anything and unless `outcome` says it.
    void warnOfStore(const std::optional<Failure>& outcome);

    /// Why the store did not take a value that a command has changed.
    std::optional<Failure> storeFailure();

    /// The platform as the options describe it.
    Platform platform() const;

    /// How it sends requests.
    skell::Transport transport() const;

private:
    std::unique_ptr<ConfigurationManager::Instance> manager_;
};

}  // namespace quorin::tool
