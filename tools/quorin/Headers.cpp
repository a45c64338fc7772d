#include "Command.hpp"
#include "Pairs.hpp"
#include "Source.hpp"

namespace quorin::tool {
void addHeaders(CLI::App& program, Action& chosen) {
    CLI::App& headers = command(program, "headers", "Print the default headers, after loading SOURCE if it is given",
                                "quorin headers config.json --brand orvel");
    const auto source = std::make_shared<Source>();
    source->addTo(headers, "SOURCE", false);
    headers.callback([source, &headers, &chosen] {
        const bool loads = headers.count("SOURCE") > 0;
        chosen = [source, loads](Session& session) -> Outcome {
            if (loads) {
                const auto loaded = source->load(session);
                if (const auto* failure = std::get_if<Failure>(&loaded)) return *failure;
            }
            session.output.json(documentOf(session.manager().defaultHeaders()));
            return {};
        };
    });
}

}  // namespace quorin::tool
