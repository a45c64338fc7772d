#include "quorin/platform/ombrith/InstrumentationCodes.hpp"

#include <span>
#include <string_view>

namespace quorin {
namespace {

struct Row {
    int code = 0;
    std::string_view name{};
};

using Codes = InstrumentationCodes;

constexpr Row components[] = {{Codes::Component::configurationManager, "configurationManager"}};

constexpr Row elements[] = {{Codes::Element::default_, "default"},
                            {Codes::Element::configInitialization, "configInitialization"},
                            {Codes::Element::configurationGuard, "configurationGuard"}};

constexpr Row errorCodes[] = {{Codes::ErrorCode::notFound, "notFound"},
                              {Codes::ErrorCode::jsonParsing, "jsonParsing"},
                              {Codes::ErrorCode::invalidParams, "invalidParams"},
                              {Codes::ErrorCode::configNotInitialized, "configNotInitialized"}};

std::string nameIn(std::span<const Row> table, int code) {
    for (const Row& row : table) {
        if (row.code == code) return std::string(row.name);
    }
    return std::to_string(code);
}

}  // namespace

std::string InstrumentationCodes::Component::nameOf(int code) { return nameIn(components, code); }

std::string InstrumentationCodes::Element::nameOf(int code) { return nameIn(elements, code); }

std::string InstrumentationCodes::ErrorCode::nameOf(int code) { return nameIn(errorCodes, code); }

}  // namespace quorin
