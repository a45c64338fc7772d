#include "ModelType.hpp"

#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/requests/Models.hpp"

#include <algorithm>

namespace quorin::tool {
namespace {

template <class Model>
class Holder final : public AnyModel {
public:
    explicit Holder(Model model) : model_(std::move(model)) {}
    DocumentMap encode() const override { return model_.encode(); }
    bool equals(const AnyModel& other) const override { return model_ == static_cast<const Holder&>(other).model_; }

private:
    Model model_;
};

template <class Model>
concept Named =
    requires(const DocumentMap& map, std::string_view name, ReadReport* report) { Model::fromJSON(map, name, report); };

template <class Model>
std::optional<Model> read(const DocumentMap& map, const ReadArguments& arguments, ReadReport& report) {
    if (arguments.form == table::Form::archive) return Model::fromEncoded(map, &report);
    if constexpr (Named<Model>) {
        if (arguments.name) return Model::fromJSON(map, *arguments.name, &report);
    }
    return Model::fromJSON(map, &report);
}

template <class Model>
rx::Result<json::Value> decode(const rx::Observable<skell::Response>& responses, bool isList) {
    std::vector<json::Value> encoded;
    if (isList) {
        const auto made = rx::wait(models<Model>(responses));
        if (!made) return made.error();
        for (const Model& one : *made) encoded.emplace_back(one.encode());
        return json::Value(json::List(encoded));
    }
    const auto made = rx::wait(model<Model>(responses));
    if (!made) return made.error();
    return json::Value(made->encode());
}

template <class Model>
ModelType row() {
    return {Model::keyTable().name, Model::keyTable, Named<Model>,
            [](const DocumentMap& map, const ReadArguments& arguments, ReadReport& report) {
                auto model = read<Model>(map, arguments, report);
                return std::unique_ptr<AnyModel>(model ? new Holder<Model>(*std::move(model)) : nullptr);
            },
            decode<Model>};
}

}  // namespace

const std::vector<ModelType>& ModelType::all() {
    static const auto& types = *new std::vector<ModelType>{
        row<Configuration>(), row<Initialize>(),    row<AppVersion>(),    row<ApplicationData>(),
        row<Common>(),        row<Auth>(),          row<Profile>(),       row<Group>(),
        row<Feature>(),       row<Player>(),        row<Ads>(),           row<ContinuousPlayback>(),
        row<Timing>(),        row<Duration>(),      row<AnalyticSuite>(), row<ConfigLayout>(),
        row<WebService>(),    row<AnonymousBind>(),
    };
    return types;
}

std::vector<std::string> ModelType::names() {
    std::vector<std::string> names;
    for (const ModelType& type : all()) names.emplace_back(type.name);
    return names;
}

const ModelType* ModelType::find(std::string_view name) {
    const auto found =
        std::find_if(all().begin(), all().end(), [&](const ModelType& type) { return type.name == name; });
    return found == all().end() ? nullptr : &*found;
}

}  // namespace quorin::tool
