#include "Command.hpp"
#include "IdentityNames.hpp"
#include "Watch.hpp"

#include <vector>

namespace quorin::tool {
namespace {

using Instance = ConfigurationManager::Instance;

constexpr const char* revealMeaning = "Print the account identifier and the token unmasked";

Outcome printAll(Session& session, bool reveal) {
    const Instance& manager = session.manager();
    session.output.json(json::DocumentMap{{"kova", shown(manager.kova(), reveal)},
                                          {"parentProfileID", manager.parentProfileID()},
                                          {"childProfileID", manager.childProfileID()},
                                          {"profileJWT", shown(manager.profileJWT(), reveal)},
                                          {"VEXOMVPD", shown(manager.VEXOMVPD(), true)},
                                          {"configDomain", shown(manager.configDomain(), true)},
                                          {"userAgent", manager.userAgent()},
                                          {"userZ", manager.userZ()}});
    return {};
}

Outcome assign(Session& session, const std::string& name, const std::optional<std::string>& value) {
    IdentityName::find(name)->assign(session.manager(), value);
    return session.storeFailure();
}

Outcome newParent(Session& session) {
    session.manager().generateNewParentProfileID();
    if (auto failure = session.storeFailure()) return failure;
    session.output.line(session.manager().parentProfileID());
    return {};
}

Outcome bind(Session& session, bool parent) {
    const auto bind = session.manager().profileBind({.parent = parent});
    if (!bind)
        return Failure::own("noValue",
                            "there is no profile token to bind; set one: quorin identity set profileJWT TOKEN");
    session.output.json(bind->encode());
    return {};
}

void addSet(CLI::App& identity, Action& chosen) {
    CLI::App& set =
        command(identity, "set", "Assign an identity value and keep it", "quorin identity set VEXOMVPD provider");
    const auto name = std::make_shared<std::string>();
    const auto value = std::make_shared<std::string>();
    set.add_option("NAME", *name, "The value's name")->required()->check(oneOf(IdentityName::all(false)));
    set.add_option("VALUE", *value, "The new value; an empty one is a value")->required()->check(text());
    set.callback([=, &chosen] { chosen = [=](Session& session) { return assign(session, *name, *value); }; });
}

void addUnset(CLI::App& identity, Action& chosen) {
    CLI::App& unset = command(identity, "unset", "Make an identity value absent", "quorin identity unset profileJWT");
    const auto name = std::make_shared<std::string>();
    unset.add_option("NAME", *name, "The value's name")->required()->check(oneOf(IdentityName::all(true)));
    unset.callback([=, &chosen] { chosen = [=](Session& session) { return assign(session, *name, {}); }; });
}

void addBind(CLI::App& identity, Action& chosen) {
    CLI::App& made = command(identity, "bind", "Print the profile with its token", "quorin identity bind --parent");
    const auto parent = std::make_shared<bool>(false);
    flag(made, "--parent", *parent, "Bind the parent profile, not the child");
    made.callback([=, &chosen] { chosen = [=](Session& session) { return bind(session, *parent); }; });
}

}  // namespace

void addIdentity(CLI::App& program, Action& chosen) {
    CLI::App& identity =
        command(program, "identity", "Print the identity values, or change them", "quorin identity --reveal");
    identity.require_subcommand(0, 1);
    const auto reveal = std::make_shared<bool>(false);
    CLI::Option& unmasked = flag(identity, "--reveal", *reveal, revealMeaning);
    addSet(identity, chosen);
    addUnset(identity, chosen);
    CLI::App& fresh =
        command(identity, "new-parent", "Make and print a new parent identifier", "quorin identity new-parent");
    fresh.callback([&chosen] { chosen = newParent; });
    addBind(identity, chosen);
    // none of these prints a masked value; a command that does is added after them
    for (CLI::App* const below : identity.get_subcommands(nullptr)) below->excludes(&unmasked);
    CLI::App& watching =
        command(identity, "watch", "Assign the values of the lines NAME VALUE, and print what observers see",
                "quorin identity watch < assignments.txt");
    flag(watching, "--reveal", *reveal, revealMeaning);
    watching.callback([=, &chosen] { chosen = [=](Session& session) { return watch(session, *reveal); }; });
    identity.callback([=, &identity, &chosen] {
        if (identity.get_subcommands().empty()) chosen = [=](Session& session) { return printAll(session, *reveal); };
    });
}

}  // namespace quorin::tool
