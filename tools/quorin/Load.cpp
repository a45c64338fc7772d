#include "Command.hpp"
#include "Source.hpp"

namespace quorin::tool {

void addLoad(CLI::App& program, Action& chosen) {
    CLI::App& load = command(program, "load", "Load a configuration and print its archived form",
                             "quorin load https://config.example.com/v1.json --brand orvel");
    const auto source = std::make_shared<Source>();
    source->addTo(load, "SOURCE", true).required();
    load.callback([source, &chosen] {
        chosen = [source](Session& session) -> Outcome {
            const auto loaded = source->load(session);
            if (const auto* failure = std::get_if<Failure>(&loaded)) return *failure;
            session.output.json(std::get<ConfigurationPointer>(loaded)->encode());
            return {};
        };
    });
}

}  // namespace quorin::tool
