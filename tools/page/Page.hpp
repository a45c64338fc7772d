#pragma once

#include "tools/document/ChangesFormat.hpp"
#include "tools/document/Check.hpp"
#include "tools/document/MatrixFormat.hpp"

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quorin::page {

using document::LineTaker;

/// The request for an endpoint, as the apps of a brand would send it.
struct ShownRequest {
    std::string service{};
    std::string method{};
    std::string url{};
    std::vector<std::pair<std::string, std::string>> headers{};
};

/// What the apps of some brands get.
struct Reader {
    std::string name{};          ///< the brand, or that they read the whole document
    json::DocumentMap values{};  ///< archived form
    std::vector<ShownRequest> requests{};
};

/// One document of the page.
struct Source {
    std::string name{};  ///< as it is shown: a path, or a URL without its secrets
    std::string text{};
    json::DocumentMap map{};
    document::Checked checked{};
    std::vector<Reader> readers{};
};

/// One page of HTML that needs nothing else, line by line: for each source what is most likely not meant beside the
/// text, what each brand sees, and its requests; with `changes` what differs between the first two. Nothing from a
/// document becomes markup or script.
void write(std::span<const Source> sources, std::span<const document::BrandChanges> changes, const LineTaker& take);

}  // namespace quorin::page
