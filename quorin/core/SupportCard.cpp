#include "quorin/core/SupportCard.hpp"

#include "quorin/core/QuorinConfigManagerVersion.h"
#include "quorin/platform/foundation/PlainText.hpp"
#include "quorin/platform/foundation/TimeZone.hpp"
#include "quorin/table/FindingKind.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quorin {
namespace {

constexpr std::string_view none = "none";

std::string_view nameOf(morr::Status::Kind kind) {
    using Kind = morr::Status::Kind;
    switch (kind) {
        case Kind::notOpened: return "not opened";
        case Kind::open: return "open";
        case Kind::memory: return "in memory";
        case Kind::unavailable: return "unavailable";
        case Kind::readOnly: return "read only";
        case Kind::setAside: return "new, a damaged one was set aside";
        case Kind::writeFailed: return "the last change is not written";
    }
    return "unknown";
}

Value orNull(const std::optional<std::string>& text) { return text ? Value(*text) : Value(); }

std::size_t countOf(const ReadReport& report, Severity severity) {
    const auto is = [&](const Finding& finding) { return kindOf(finding).severity == severity; };
    return static_cast<std::size_t>(std::count_if(report.findings.begin(), report.findings.end(), is));
}

/// The counts under their names, in the order of the text.
std::array<std::pair<std::string_view, std::size_t>, 6> named(const ReadCounts& counts) {
    return {{{"sections", counts.sections},
             {"webServices", counts.webServices},
             {"groups", counts.groups},
             {"features", counts.features},
             {"layouts", counts.layouts},
             {"analytics", counts.analytics}}};
}

Value findingsOf(const LoadReport& load) {
    if (!load.findings) return {};
    return DocumentMap{{"errors", countOf(*load.findings, Severity::error)},
                       {"warnings", countOf(*load.findings, Severity::warning)},
                       {"omitted", load.findings->omitted}};
}

Value loadOf(const LoadReport* load) {
    if (!load) return {};
    DocumentMap read;
    for (const auto& [name, count] : named(load->counts)) read = read.with(name, count);
    return DocumentMap{{"source", load->source},
                       {"brand", load->brand ? Value(load->brand->rawValue()) : Value()},
                       {"section", load->section.empty() ? Value() : Value(load->section)},
                       {"time", foundation::utcTime(load->time)},
                       {"size", load->size},
                       {"fingerprint", load->fingerprint()},
                       {"read", read},
                       {"findings", findingsOf(*load)}};
}

Value failureOf(const LoadReport* failed) {
    if (!failed || !failed->failure) return {};
    const auto& place = failed->failure->position;
    return DocumentMap{{"source", failed->source},
                       {"time", foundation::utcTime(failed->time)},
                       {"message", failed->failure->message},
                       {"line", place ? Value(place->line) : Value()},
                       {"column", place ? Value(place->column) : Value()}};
}

/// A line of the text. What a host, a document or a server wrote may hold anything.
std::string line(std::string_view label, std::string_view facts) {
    return std::string(label) + ": " + foundation::plainText(facts) + "\n";
}

std::string brandAndSection(const LoadReport& load) {
    const std::string brand(load.brand ? load.brand->rawValue() : none);
    return brand + (load.section.empty() ? ", the whole document" : ", section \"" + load.section + "\"");
}

std::string countsIn(const LoadReport& load) {
    std::string text;
    for (const auto& [name, count] : named(load.counts))
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + std::string(name);
    return text;
}

std::string findingsIn(const LoadReport& load) {
    if (!load.findings) return "not asked for";
    const std::size_t omitted = load.findings->omitted;
    return std::to_string(countOf(*load.findings, Severity::error)) + " errors, "
           + std::to_string(countOf(*load.findings, Severity::warning)) + " warnings"
           + (omitted > 0 ? ", " + std::to_string(omitted) + " more findings omitted" : std::string());
}

std::string failureIn(const LoadReport& failed) {
    std::string text = foundation::utcTime(failed.time) + ", " + failed.source + ": " + failed.failure->message;
    if (const auto& place = failed.failure->position)
        text += " (line " + std::to_string(place->line) + ", column " + std::to_string(place->column) + ")";
    return text;
}

}  // namespace

std::string SupportCard::text() const {
    const auto ofLoad = [&](auto facts) { return load ? facts(*load) : std::string(none); };
    return line("library", std::string("QuorinConfigManager ") + QuorinConfigManagerVersionString)
           + line("app", app.name.value_or("unnamed") + " " + app.shortVersion.value_or("without a version"))
           + line("device", device.model + ", " + device.systemName + " " + device.systemVersion + ", " + locale)
           + line("store", std::string(nameOf(store.kind)))
           + line("source", ofLoad([](const LoadReport& report) { return report.source; }))
           + line("brand", ofLoad(brandAndSection)) + line("loaded", ofLoad([](const LoadReport& report) {
                                                               return foundation::utcTime(report.time) + ", "
                                                                      + std::to_string(report.size) + " bytes, SHA-256 "
                                                                      + report.fingerprint();
                                                           }))
           + line("read", ofLoad(countsIn)) + line("findings", ofLoad(findingsIn))
           + line("last failure", failed && failed->failure ? failureIn(*failed) : std::string(none));
}

DocumentMap SupportCard::json() const {
    return DocumentMap{
        {"library", QuorinConfigManagerVersionString},
        {"app", DocumentMap{{"name", orNull(app.name)}, {"version", orNull(app.shortVersion)}}},
        {"device",
         DocumentMap{{"model", device.model}, {"system", device.systemName}, {"version", device.systemVersion}}},
        {"locale", locale},
        {"store", nameOf(store.kind)},
        {"load", loadOf(load.get())},
        {"lastFailure", failureOf(failed.get())}};
}

}  // namespace quorin
