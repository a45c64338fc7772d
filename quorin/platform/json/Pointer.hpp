#pragma once

#include <string>
#include <string_view>
#include <vector>

/// JSON Pointers (RFC 6901): "/groups/1/title".
namespace quorin::json {

/// Adds the step to the member `name`: "~" is written "~0" and "/" is written "~1".
void appendStep(std::string& pointer, std::string_view name);

/// The names and indices that `pointer` leads through.
std::vector<std::string> stepsOf(std::string_view pointer);

}  // namespace quorin::json
