#include "Outcome.hpp"

#include <utility>

namespace quorin::tool {

Action judging(Action action) {
    return [action = std::move(action)](Session& session) {
        session.trouble = wrongUse;
        return action(session);
    };
}

}  // namespace quorin::tool
