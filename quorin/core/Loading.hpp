#pragma once

#include "quorin/core/LoadArguments.hpp"
#include "quorin/core/LoadReport.hpp"
#include "quorin/platform/skell/Response.hpp"

#include <string>
#include <string_view>

/// From the bytes of a document to a report with its stamped configuration. Nothing here touches a manager, or knows
/// the time.
namespace quorin::loading {

/// What came of `document`, which was parsed from `text` and stands at `source`: a failure is an `Oops` record.
LoadReport reportOf(const DocumentMap& document, std::string_view text, std::string source,
                    const LoadArguments& arguments);

/// What came of the document in a file: a failure is an `Oops` record.
LoadReport reportOf(const PathURL& file, const LoadArguments& arguments);

/// What came of the document that a server sent for `url`: a failure is the request library's error or an `Oops`
/// record.
LoadReport reportOf(const skell::Response& response, std::string_view url, const LoadArguments& arguments);

/// Of a load for `url` to which no response came.
LoadReport reportOf(const rx::Error& error, std::string_view url, const LoadArguments& arguments);

}  // namespace quorin::loading
