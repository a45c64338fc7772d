#pragma once

#include "quorin/platform/json/Value.hpp"

#include "Check.hpp"
#include "MatrixFormat.hpp"

#include <span>
#include <string>
#include <vector>

namespace quorin::document {

/// What a check of one source came to.
struct CheckedSource {
    std::string name{};  ///< as it is shown: a path, or a URL without its secrets
    Checked checked{};
};

/// One line a diagnosis, as compilers write them: "a.json:3:17: error:
/// /orvel/auth/sso: expected boolean, ... [wrong-type]".
std::vector<std::string> lines(const CheckedSource& source);

/// The same for programs, one object a diagnosis.
std::vector<json::Value> records(const CheckedSource& source);

/// A log of SARIF 2.1.0 (OASIS standard), with every kind as a rule.
json::DocumentMap sarif(std::span<const CheckedSource> sources);

/// A report of test suites as continuous integration reads them: a suite a
/// source, a failing case a diagnosis of at least `level`, and a passing case
/// for a source that has none.
void junitLines(std::span<const CheckedSource> sources, Severity level, const LineTaker& take);

/// How many of the diagnoses are of this severity.
std::size_t count(const Checked& checked, Severity severity);

}  // namespace quorin::document
