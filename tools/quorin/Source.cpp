#include "Source.hpp"

#include "quorin/platform/foundation/File.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/foundation/SHA256.hpp"
#include "quorin/platform/json/UTF8.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include "DocumentSource.hpp"
#include "StandardInput.hpp"
#include "tools/document/BrandViews.hpp"
#include "tools/document/Nearest.hpp"

#include <algorithm>
#include <memory>
#include <utility>

namespace quorin::tool {
namespace {

/// The machine's identifier is a secret of the machine: only a digest of it leaves.
std::string deviceOfMachine() {
    for (const char* const path : {"/etc/machine-id", "/var/lib/dbus/machine-id"}) {
        const auto read = foundation::readFile(path);
        const std::string identifier = read.bytes.substr(0, read.bytes.find('\n'));
        if (!identifier.empty()) return foundation::sha256Hex("quorin device " + identifier).substr(0, 32);
    }
    return "unknown-device";
}

bool isSpelling(const std::string& text) {
    const Brand brand = Brand::fromRaw(text);
    return brand != Brand::unknown || text == brand.rawValue();
}

std::string spellingsNear(const std::string& text) {
    const bool isAnyNear = !document::near(text, Brand::spellings()).empty();
    return (isAnyNear ? "spellings near it: " : "no spelling is near it; name one of ")
           + document::nearest(text, Brand::spellings());
}

/// What is wrong with a file that did not load, in more words than the library's record has, and what to do about it.
std::string whatIsWrong(const LoadReport& failed) {
    const std::string& words = failed.failure->message;
    if (const auto& place = failed.failure->position) return notJSON(*place, words);
    return failed.size == 0 ? words + "; name a file that can be read" : words;
}

}  // namespace

Brand brandNamed(const std::string& text, Output& output) {
    if (!isSpelling(text)) output.warn("\"" + text + "\" names no brand and loads as unknown; " + spellingsNear(text));
    return Brand::fromRaw(text);
}

std::optional<Brand> brandMeant(const std::string& text) {
    if (isSpelling(text)) return Brand::fromRaw(text);
    for (const Brand brand : document::allBrands()) {
        if (brand.name() == text) return brand;
    }
    return std::nullopt;
}

CLI::Validator brandText() {
    const auto check = [](const std::string& given) {
        return brandMeant(given) ? std::string() : "\"" + given + "\" names no brand; " + spellingsNear(given);
    };
    return {check, ""};
}

void addBrands(CLI::App& command, std::vector<std::string>& texts) {
    repeatedText(command, "--brand", texts, "A brand, in any accepted spelling; may be repeated; all by default")
        .check(brandText());
}

std::vector<Brand> brandsAsked(const std::vector<std::string>& texts) {
    if (texts.empty()) return document::allBrands();
    std::vector<Brand> brands;
    brands.reserve(texts.size());
    for (const std::string& text : texts) brands.push_back(*brandMeant(text));
    std::sort(brands.begin(), brands.end());
    brands.erase(std::unique(brands.begin(), brands.end()), brands.end());
    return brands;
}

CLI::Option& addSource(CLI::App& command, const std::string& argument, std::string& name) {
    const auto isUTF8URL = [](const std::string& given) {
        return isURL(given) && !json::isUTF8(given) ? std::string("is not UTF-8 text") : std::string();
    };
    CLI::Option& source =
        *command.add_option(argument, name, "An http or https URL, or the path of a file; - is standard input");
    return *source.type_name("SOURCE")->check(CLI::Validator(isUTF8URL, ""));
}

void addSources(CLI::App& command, std::vector<std::string>& names) {
    const auto isOnce = [seen = std::make_shared<bool>(false)](const std::string& given) {
        const bool isAgain = given == "-" && std::exchange(*seen, true);
        return isAgain ? std::string("standard input can be one SOURCE only; name files for the others")
                       : std::string();
    };
    texts(command, "SOURCE", names, "http or https URLs, or paths of files; - is standard input")
        .type_name("SOURCE")
        ->check(CLI::Validator(isOnce, ""))
        ->required();
}

CLI::Option& Source::addTo(CLI::App& command, const std::string& argument, bool withDevice) {
    CLI::Option& source = addSource(command, argument, name);
    optionalText(command, "--brand", brand, "The brand, in any accepted spelling")
        .type_name("TEXT")
        ->check(text())
        ->needs(&source);
    if (withDevice)
        optionalText(command, "--device", device, "The device identifier (one of this machine by default)")
            .type_name("ID")
            ->check(text())
            ->needs(&source);
    command.add_option("--version", version, "The configuration's version")
        ->type_name("V")
        ->check(text())
        ->capture_default_str()
        ->needs(&source);
    return source;
}

std::variant<ConfigurationPointer, Failure> Source::load(Session& session, bool findings) const {
    const LoadArguments arguments{.deviceID = device ? *device : deviceOfMachine(),
                                  .brand = brand ? std::optional(brandNamed(*brand, session.output)) : std::nullopt,
                                  .version = version,
                                  .findings = findings};
    auto& manager = session.manager();
    const auto loaded = rx::wait(isURL(name) ? manager.initialize(name, arguments)
                                             : manager.initialize(PathURL{pathOf(name)}, arguments));
    if (loaded) return *loaded;
    Failure failure = Failure::of(loaded.error(), "cannot load " + (isURL(name) ? "the URL" : calledFile(name)));
    if (!isURL(name)) failure.message = "cannot load " + calledFile(name) + ": " + whatIsWrong(*manager.failedLoad());
    return failure;
}

std::string pathOf(const std::string& name) { return name == "-" ? standardInputPath() : name; }

std::string calledArgument(const std::string& name) {
    const auto begins = [&](std::string_view scheme) {
        return rawvalues::sameFolded(std::string_view(name).substr(0, scheme.size()), scheme);
    };
    const bool isMeantAsURL = name.find(":/") != name.npos || begins("http:") || begins("https:");
    return isMeantAsURL ? skell::redacted(name) : name;
}

std::string calledFile(const std::string& name) { return name == "-" ? "standard input" : calledArgument(name); }

}  // namespace quorin::tool
