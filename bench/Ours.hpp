#pragma once

#include "quorin/core/ConfigurationManager.hpp"

#include <memory>
#include <string>

/// The library as the benches use it. What fails ends the program, because the time of a failure says nothing.
namespace quorin::bench {

/// The typed load of a text that has the room behind it with which files and responses are read.
std::shared_ptr<const Configuration> load(const std::string& text, bool findings = false);

/// An app whose store is this file, with cookies of its own.
Platform platformOn(const std::string& store);

/// Loads the file into the shared manager, which keeps its values in memory.
void makeCurrent(const std::string& file);

}  // namespace quorin::bench
