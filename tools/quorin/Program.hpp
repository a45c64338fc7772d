#pragma once

namespace quorin::tool {

/// What the program does with its arguments, of which the first is its own name: prints the result, or why there is
/// none. Yields what it exits with. Throws what no command expects.
int runProgram(int argc, const char* const* argv);

}  // namespace quorin::tool
