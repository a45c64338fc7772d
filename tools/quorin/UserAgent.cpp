#include "quorin/context/ConfigurationManagerUtils.hpp"

#include "Command.hpp"

namespace quorin::tool {

void addUserAgent(CLI::App& program, Action& chosen) {
    CLI::App& userAgent =
        command(program, "user-agent", "Print the user agent that is generated, from EXISTING if given",
                "quorin user-agent 'Foo/1 CFNetwork/808.3 Darwin/16.3.0'");
    const auto existing = std::make_shared<std::optional<std::string>>();
    optionalText(userAgent, "EXISTING", *existing, "A user agent whose CFNetwork and Darwin pieces are taken over")
        .check(text());
    userAgent.callback([existing, &chosen] {
        chosen = [existing](Session& session) -> Outcome {
            const Platform platform = session.platform();
            session.output.line(ConfigurationManagerUtils::generateUserAgent(*existing, platform));
            return {};
        };
    });
}

}  // namespace quorin::tool
