#pragma once

#include "quorin/facade/Wrapper.hpp"
#include "quorin/model/Feature.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// A feature switch as an object.
class KVTFeature : public Wrapper<Feature> {
public:
    static constexpr std::string_view objectName = "KVTFeature";
    using Wrapper::Wrapper;

    /// Of what `encode` wrote; empty where that makes none.
    static std::optional<KVTFeature> fromEncoded(const DocumentMap& encoded) { return read<KVTFeature>(encoded); }

    const Feature& feature() const { return *native(); }

    std::optional<std::string> name() const { return feature().name; }
    std::optional<DocumentMap> params() const { return feature().params; }
};

}  // namespace quorin

#pragma GCC visibility pop
