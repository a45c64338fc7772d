#pragma once

#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Map.hpp"
#include "quorin/platform/skell/Json.hpp"
#include "quorin/table/Archivable.hpp"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin {

/// What a stream ends with whose JSON object makes no model.
Oops modelFailedToInitialize();

/// The model that the JSON object of each response makes, on the delivering thread. Ends with the failures of
/// `skell::json`, or with an `Oops` record when the object makes none.
template <Serializable Model>
rx::Observable<Model> model(rx::Observable<skell::Response> responses) {
    return rx::map(skell::json(std::move(responses)), [](const DocumentMap& json) -> rx::Result<Model> {
        if (auto made = Model::fromJSON(json)) return *std::move(made);
        return modelFailedToInitialize();
    });
}

/// The models that the JSON array of each response makes, in its order, on the delivering thread; what makes none is
/// passed over. Ends with the failures of `skell::jsonArray` alone.
template <Serializable Model>
rx::Observable<std::vector<Model>> models(rx::Observable<skell::Response> responses) {
    return rx::map(skell::jsonArray(std::move(responses)), [](const List& list) {
        std::vector<Model> made;
        for (std::size_t i = 0; i < list.size(); ++i) {
            const auto object = list[i].asObject();
            if (auto one = object ? Model::fromJSON(*object) : std::nullopt) made.push_back(*std::move(one));
        }
        return made;
    });
}

}  // namespace quorin

#pragma GCC visibility pop
