#pragma once

#include <string>
#include <string_view>

namespace quorin::foundation {

/// A secret as it may be shown: its first four characters and "…"; only "…" for one of five characters or fewer.
std::string masked(std::string_view secret);

}  // namespace quorin::foundation
