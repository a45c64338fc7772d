#pragma once

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"
#include "quorin/table/Archivable.hpp"
#include "quorin/table/ReadReport.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace quorin {

namespace json {
inline void PrintTo(const Value& value, std::ostream* out) { *out << print(value); }
inline void PrintTo(const DocumentMap& map, std::ostream* out) { *out << print(map); }
}  // namespace json

template <Archivable T>
void PrintTo(const T& model, std::ostream* out) {
    *out << json::print(model.encode());
}

template <Archivable T>
void showValue(const T& model, std::ostream& out) {
    out << json::print(model.encode());
}

inline void PrintTo(const Finding& finding, std::ostream* out) {
    *out << finding.pointer << ": " << finding.found << " for " << finding.expected << ": " << nameOf(finding.cost);
}

/// The object that `text` holds, which must be one.
inline DocumentMap object(std::string_view text) {
    const json::ParseResult result = json::parse(text);
    EXPECT_TRUE(result && result.value()->asObject()) << text;
    return result && result.value()->asObject() ? *result.value()->asObject() : DocumentMap();
}

template <Serializable T>
std::optional<T> readDocument(std::string_view text) {
    return T::fromJSON(object(text));
}

template <Archivable T>
std::optional<T> readArchive(std::string_view text) {
    return T::fromEncoded(object(text));
}

/// The canonical text of the archived form of what the document makes, or "nothing".
template <class T>
std::string archived(std::string_view document) {
    const std::optional<T> model = readDocument<T>(document);
    return model ? json::print(model->encode()) : "nothing";
}

/// What reading `text` as a document reports.
template <Serializable T>
ReadReport reportOf(std::string_view text) {
    ReadReport report;
    T::fromJSON(object(text), &report);
    return report;
}

}  // namespace quorin
