#include "quorin/facade/KVTHTTPMethod.hpp"

#include "quorin/facade/IntegerTable.hpp"

namespace quorin {
namespace {

constexpr integers::Table<HTTPMethod, 9> table{HTTPMethod::CONNECT, HTTPMethod::DELETE, HTTPMethod::HEAD,
                                               HTTPMethod::OPTIONS, HTTPMethod::PATCH,  HTTPMethod::POST,
                                               HTTPMethod::PUT,     HTTPMethod::TRACE,  HTTPMethod::GET};

}  // namespace

KVTHTTPMethod::KVTHTTPMethod(std::optional<HTTPMethod> httpMethod)
    : case_(static_cast<Case>(integers::integerOf(table, httpMethod))) {}

std::optional<KVTHTTPMethod> KVTHTTPMethod::fromRawValue(std::int64_t rawValue) {
    if (!integers::has(table, rawValue)) return std::nullopt;
    return KVTHTTPMethod(static_cast<Case>(rawValue));
}

std::optional<HTTPMethod> KVTHTTPMethod::httpMethod() const { return integers::at(table, case_); }

}  // namespace quorin
