#include "quorin/facade/KVTContentType.hpp"

#include "quorin/facade/IntegerTable.hpp"

namespace quorin {
namespace {

constexpr integers::Table<ContentType, 3> table{ContentType::JSON, ContentType::XML, ContentType::urlEncoded};

}  // namespace

KVTContentType::KVTContentType(std::optional<ContentType> contentType)
    : case_(static_cast<Case>(integers::integerOf(table, contentType))) {}

std::optional<KVTContentType> KVTContentType::fromRawValue(std::int64_t rawValue) {
    if (!integers::has(table, rawValue)) return std::nullopt;
    return KVTContentType(static_cast<Case>(rawValue));
}

std::optional<ContentType> KVTContentType::contentType() const { return integers::at(table, case_); }

}  // namespace quorin
