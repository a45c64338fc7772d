#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::document {

/// Where a field of a configuration stands.
struct FieldPath {
    std::vector<std::string> archived{};    ///< the steps in the archived form
    std::vector<std::string> inDocument{};  ///< those in the brand's section of a document
    bool isByDocument = false;              ///< it was named by the latter
    bool isAround = false;                  ///< it is no field, but an object of the document that fields stand in
};

/// The names and indices of a path as `Path` puts it in words: `groups[0].title`, `features["a b"].on`. Empty when it
/// is none.
std::optional<std::vector<std::string>> stepsOfPath(std::string_view text);

/// The field at `steps` of a configuration, by the tables that its readers follow; they are those of a path in words,
/// or those in the document where `isInDocument`. Empty when no reader knows it; then `known` are the names that stand
/// where it leaves the ways that they know, and `unknown` is the step that does.
std::optional<FieldPath> fieldAt(const std::vector<std::string>& steps, bool isInDocument,
                                 std::vector<std::string_view>& known, std::size_t* unknown = nullptr);

}  // namespace quorin::document
