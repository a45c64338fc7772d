#pragma once

#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Result.hpp"
#include "quorin/platform/skell/Response.hpp"
#include "quorin/table/Section.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::tool {

/// One model value of whatever type, as the program needs it.
class AnyModel {
public:
    virtual ~AnyModel() = default;
    virtual DocumentMap encode() const = 0;
    /// Compares with a value of the same type.
    virtual bool equals(const AnyModel& other) const = 0;
};

/// How the object to be read is given.
struct ReadArguments {
    table::Form form = table::Form::document;
    std::optional<std::string> name{};  ///< the member name under which it stands
};

/// A model type by the name of which it is asked for.
struct ModelType {
    std::string_view name;
    const KeyTable& (*table)();
    bool named;  ///< whether its server reader takes a member name
    std::unique_ptr<AnyModel> (*read)(const DocumentMap& map, const ReadArguments& arguments, ReadReport& report);

    /// What a response holds of this type, or all that a list holds, in the archived form; waits for it.
    rx::Result<json::Value> (*decode)(const rx::Observable<skell::Response>& responses, bool isList);

    /// In the order in which the usage lists them.
    static const std::vector<ModelType>& all();
    static std::vector<std::string> names();
    /// Null when no type has the name.
    static const ModelType* find(std::string_view name);
};

}  // namespace quorin::tool
