// Any bytes as the file of a configuration: what loads is written and read back equal, but for the three fields that a
// load stamps it with, and whether a report is wanted changes nothing.
#include "quorin/core/Loading.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"

#include "fuzz/Fuzz.hpp"
#include "fuzz/Scratch.hpp"

#include <optional>

namespace quorin::fuzz {
namespace {

std::optional<DocumentMap> objectIn(std::string_view text) {
    const auto parsed = json::parse(text);
    return parsed.value() ? parsed.value()->asObject() : std::nullopt;
}

void checkArchive(const Configuration& loaded) {
    const DocumentMap archive = loaded.encode();
    Configuration unstamped = loaded;
    unstamped.brand.reset();
    unstamped.device.reset();
    unstamped.version.reset();
    const auto restored = Configuration::fromEncoded(archive);
    require(restored && *restored == unstamped, "the archive makes an equal configuration");
    const auto printed = objectIn(json::print(archive));
    require(printed && *printed == archive, "the printed archive is an equal object");
}

void checkFindings(const ReadReport& report) {
    for (const Finding& finding : report.findings)
        require(finding.position && finding.position->line > 0, "a finding has a place in the text");
}

void check(const PathURL& file, std::optional<Brand> brand) {
    const auto quiet = loading::reportOf(file, {.deviceID = "D", .brand = brand});
    const auto told = loading::reportOf(file, {.deviceID = "D", .brand = brand, .findings = true});
    require(quiet.failure.has_value() == told.failure.has_value(), "findings do not change the verdict");
    require(quiet.failure.has_value() == !quiet.configuration, "a load fails or yields a configuration");
    if (quiet.failure) return require(!quiet.failure->message.empty(), "a failure is told in words");
    require(*quiet.configuration == *told.configuration, "findings do not change the value");
    require(quiet.configuration->brand == brand && quiet.configuration->device == "D", "a load stamps what it loads");
    require(quiet.fingerprint() == told.fingerprint(), "findings do not change the fingerprint");
    checkArchive(*quiet.configuration);
    checkFindings(*told.findings);
}

/// The whole document, and the section of each brand that it may hold one of.
void check(std::string_view text) {
    const PathURL file{scratch().write("document.json", text)};
    check(file, std::nullopt);
    const auto document = objectIn(text);
    for (std::size_t i = 0; document && i <= Brand::unknown; ++i) {
        const Brand brand = static_cast<Brand::Case>(i);
        if (document->contains(brand.ID())) check(file, brand);
    }
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
