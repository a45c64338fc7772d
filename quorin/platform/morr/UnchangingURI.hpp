#pragma once

#include <string>

namespace quorin::morr {

/// The name by which SQLite opens a file that nobody writes: it reads it without locks and without a journal. The path
/// is absolute.
std::string unchangingURI(const std::string& path);

}  // namespace quorin::morr
