#include "quorin/model/Initialize.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& Initialize::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&Initialize::configRefreshInterval>(Keys::configRefreshInterval),
        field<&Initialize::sessionRefreshInterval>(Keys::sessionRefreshInterval),
        field<&Initialize::storeLink>(Keys::storeLink),
        field<&Initialize::isIRateEnabled>(Keys::isIRateEnabled),
        field<&Initialize::isRateThisAppEnabled>(Keys::isRateThisAppEnabled),
        field<&Initialize::optionalUpdateLink>(Keys::optionalUpdateLink),
        field<&Initialize::forceUpdateLink>(Keys::forceUpdateLink),
        field<&Initialize::isMaintenanceState>(Keys::isMaintenanceState),
        field<&Initialize::maintenanceMainMessage>(Keys::maintenanceMainMessage),
        field<&Initialize::compulsiveRewardCount>(Keys::compulsiveRewardCount),
        field<&Initialize::compulsiveReward>(Keys::compulsiveReward),
        field<&Initialize::geoCacheDuration>(Keys::geoCacheDuration),
    };
    static constexpr KeyTable keys =
        table::of<Initialize>("Initialize", "Start-up and refresh settings of the app", rows);
    return keys;
}

std::optional<Initialize> Initialize::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<Initialize>(json, report);
}
std::optional<Initialize> Initialize::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<Initialize>(encoded, report);
}
DocumentMap Initialize::encode() const { return section::encode(*this); }

}  // namespace quorin
