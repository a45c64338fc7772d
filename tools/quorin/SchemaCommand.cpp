#include "Command.hpp"
#include "ModelType.hpp"
#include "tools/schema/Schema.hpp"

namespace quorin::tool {

void addSchema(CLI::App& program, Action& chosen) {
    CLI::App& made = command(program, "schema", "Print the JSON Schema of a document, or of a model type",
                             "quorin schema > configuration.schema.json");
    const auto type = std::make_shared<std::optional<std::string>>();
    optionalText(made, "TYPE", *type, "The model type; a whole document where it is left out")
        .check(oneOf(ModelType::names()));
    made.callback([type, &chosen] {
        chosen = [type](Session& session) -> Outcome {
            session.output.json(*type ? schema::ofSection(ModelType::find(**type)->table()) : schema::ofDocument());
            return {};
        };
    });
}

}  // namespace quorin::tool
