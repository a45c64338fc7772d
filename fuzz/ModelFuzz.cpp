// A JSON object as any model in either form, which the first byte names: what is read is written and read back equal,
// through a printed text too, and whether a report is wanted changes nothing.
#include "quorin/context/AnonymousBind.hpp"
#include "quorin/model/Configuration.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"

#include "fuzz/Fuzz.hpp"

#include <array>
#include <optional>

namespace quorin::fuzz {
namespace {

/// The forms in which an object may be read: as the server writes it, under a name, and as the library archives it.
enum class Form : std::uint8_t { document, named, archive };
constexpr std::size_t forms = 3;

template <class Model>
std::optional<Model> readAs(Form form, const DocumentMap& map, ReadReport* report) {
    if (form == Form::archive) return Model::fromEncoded(map, report);
    if constexpr (requires { Model::fromJSON(map, std::string_view(), report); }) {
        if (form == Form::named) return Model::fromJSON(map, "name of its own", report);
    }
    return Model::fromJSON(map, report);
}

template <class Model>
void checkModel(Form form, const DocumentMap& map) {
    ReadReport report;
    const auto model = readAs<Model>(form, map, nullptr);
    require(readAs<Model>(form, map, &report) == model, "a report does not change the value");
    if (!model) return;
    const DocumentMap archive = model->encode();
    require(Model::fromEncoded(archive) == model, "the archive makes an equal model");
    const auto parsed = json::parse(json::print(archive));
    const auto printed = parsed.value() ? parsed.value()->asObject() : std::nullopt;
    require(printed && Model::fromEncoded(*printed) == model, "the printed archive makes an equal model");
}

constexpr std::array checks{
    checkModel<Configuration>, checkModel<Initialize>,    checkModel<AppVersion>, checkModel<ApplicationData>,
    checkModel<Common>,        checkModel<Auth>,          checkModel<Profile>,    checkModel<Group>,
    checkModel<Feature>,       checkModel<Player>,        checkModel<Ads>,        checkModel<ContinuousPlayback>,
    checkModel<Timing>,        checkModel<Duration>,      checkModel<WebService>, checkModel<AnonymousBind>,
    checkModel<ConfigLayout>,  checkModel<AnalyticSuite>,
};

/// The first byte counts from "A", so that an input can be read and written by hand.
void check(std::string_view input) {
    if (input.empty()) return;
    const std::size_t number = static_cast<unsigned char>(input[0]) - std::size_t{'A'};
    if (number >= forms * checks.size()) return;
    const auto parsed = json::parse(input.substr(1));
    const auto map = parsed.value() ? parsed.value()->asObject() : std::nullopt;
    if (map) checks[number / forms](static_cast<Form>(number % forms), *map);
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
