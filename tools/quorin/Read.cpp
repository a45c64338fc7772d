#include "Command.hpp"
#include "ModelFile.hpp"

namespace quorin::tool {
namespace {

struct Arguments : ModelArguments {
    std::string file = "-";
};

Outcome readAndPrint(const Arguments& arguments, Session& session) {
    const auto read = readModel(arguments, arguments.file);
    if (const auto* failure = std::get_if<Failure>(&read)) return *failure;
    session.output.json(std::get<std::unique_ptr<AnyModel>>(read)->encode());
    return {};
}

}  // namespace

void addRead(CLI::App& program, Action& chosen) {
    CLI::App& read = command(program, "read", "Read one JSON object as a model type and print its archived form",
                             "quorin read Feature chat.json --name chat");
    const auto arguments = std::make_shared<Arguments>();
    arguments->addTo(read);
    read.add_option("FILE", arguments->file, "The file that holds the object; - is standard input")
        ->capture_default_str();
    optionalText(read, "--name", arguments->name, "The member name under which a Feature or ConfigLayout stands")
        .type_name("NAME")
        ->check(text());
    read.callback([arguments, &chosen] {
        const bool takesName = ModelType::find(arguments->type)->named && arguments->form == "server";
        if (arguments->name && !takesName)
            throw CLI::ValidationError("--name", "is for Feature and ConfigLayout in the server form");
        chosen = [arguments](Session& session) { return readAndPrint(*arguments, session); };
    });
}

}  // namespace quorin::tool
