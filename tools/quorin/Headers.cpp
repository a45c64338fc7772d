#include "Command.hpp"
#include "Source.hpp"

#include <vector>

namespace quorin::tool {
namespace {

json::DocumentMap mapOf(const StringMap& texts) {
    return json::DocumentMap(std::vector<json::DocumentMap::Member>(texts.begin(), texts.end()));
}

}  // namespace

void addHeaders(CLI::App& program, Action& chosen) {
    CLI::App& headers = command(program, "headers", "Print the default headers, after loading SOURCE if it is given",
                                "quorin headers config.json --brand orvel");
    const auto source = std::make_shared<Source>();
    source->addTo(headers, false, false);
    for (const char* const option : {"--brand", "--version"})
        headers.get_option(option)->needs(headers.get_option("SOURCE"));
    headers.callback([source, &headers, &chosen] {
        const bool loads = headers.count("SOURCE") > 0;
        chosen = [source, loads](Session& session) -> Outcome {
            if (loads) {
                const auto loaded = source->load(session);
                if (const auto* failure = std::get_if<Failure>(&loaded)) return *failure;
            }
            session.output.json(mapOf(session.manager().defaultHeaders()));
            return {};
        };
    });
}

}  // namespace quorin::tool
