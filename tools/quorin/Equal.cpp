#include "Command.hpp"
#include "ModelFile.hpp"

namespace quorin::tool {
namespace {

struct Arguments : ModelArguments {
    std::string left{};
    std::string right{};
};

Outcome compare(const Arguments& arguments) {
    std::unique_ptr<AnyModel> models[2];
    const std::string* const files[] = {&arguments.left, &arguments.right};
    for (std::size_t i = 0; i < 2; ++i) {
        auto read = readModel(arguments, *files[i]);
        if (const auto* failure = std::get_if<Failure>(&read)) return *failure;
        models[i] = std::move(std::get<std::unique_ptr<AnyModel>>(read));
    }
    if (models[0]->equals(*models[1])) return {};
    return Failure::silent();
}

}  // namespace

void addEqual(CLI::App& program, Action& chosen) {
    CLI::App& equal = command(program, "equal", "Tell by the exit status whether two files hold equal values: 0, or 1",
                              "quorin equal Configuration old.json new.json --form archived");
    const auto arguments = std::make_shared<Arguments>();
    arguments->addTo(equal);
    equal.add_option("FILE1", arguments->left, "One file")->required();
    equal.add_option("FILE2", arguments->right, "The other file")->required();
    equal.callback([arguments, &chosen] { chosen = judging([arguments](Session&) { return compare(*arguments); }); });
}

}  // namespace quorin::tool
