#include "quorin/model/AnalyticSuite.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& AnalyticSuite::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&AnalyticSuite::account>(Keys::account),     field<&AnalyticSuite::id>(Keys::id),
        field<&AnalyticSuite::logEvents>(Keys::logEvents), field<&AnalyticSuite::logLevel>(Keys::logLevel),
        field<&AnalyticSuite::server>(Keys::server),       field<&AnalyticSuite::sfCode>(Keys::sfCode),
        field<&AnalyticSuite::timeout>(Keys::timeout),     field<&AnalyticSuite::enabled>(Keys::enabled),
    };
    static constexpr KeyTable keys =
        table::of<AnalyticSuite>("AnalyticSuite", "One analytics service of the app", rows);
    return keys;
}

std::optional<AnalyticSuite> AnalyticSuite::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<AnalyticSuite>(json, report);
}
std::optional<AnalyticSuite> AnalyticSuite::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<AnalyticSuite>(encoded, report);
}
DocumentMap AnalyticSuite::encode() const { return section::encode(*this); }

}  // namespace quorin
