#include "quorin/facade/c/configuration.h"

#include "quorin/facade/KVTConfiguration.hpp"
#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/Map.hpp"

namespace {

namespace c = quorin::c;
using quorin::KVTApplicationData;
using quorin::KVTConfiguration;
using quorin::KVTFeature;
using quorin::MapOf;
using Application = KVTApplicationData;

template <class T>
std::optional<c::Map> mapOf(const std::optional<MapOf<T>>& objects) {
    return objects ? std::optional<c::Map>(*objects) : std::nullopt;
}

}  // namespace

quorin_status quorin_configuration_brand(quorin_handle configuration, int32_t* brand) {
    return c::answer<KVTConfiguration>(
        configuration, [](const KVTConfiguration& it) { return it.brand().rawValue(); }, brand);
}
quorin_status quorin_configuration_device(quorin_handle configuration, char* buffer, uint64_t capacity,
                                          uint64_t* size) {
    return c::text<KVTConfiguration>(configuration, &KVTConfiguration::device, {buffer, capacity, size});
}
quorin_status quorin_configuration_version(quorin_handle configuration, char* buffer, uint64_t capacity,
                                           uint64_t* size) {
    return c::text<KVTConfiguration>(configuration, &KVTConfiguration::version, {buffer, capacity, size});
}
quorin_status quorin_configuration_web_services(quorin_handle configuration, quorin_handle* map) {
    return c::answer<KVTConfiguration>(
        configuration, [](const KVTConfiguration& it) { return mapOf(it.webServices()); }, map);
}
quorin_status quorin_configuration_features(quorin_handle configuration, quorin_handle* map) {
    return c::answer<KVTConfiguration>(
        configuration, [](const KVTConfiguration& it) { return mapOf(it.features()); }, map);
}
quorin_status quorin_configuration_application_data(quorin_handle configuration, quorin_handle* application_data) {
    return c::answer<KVTConfiguration>(configuration, &KVTConfiguration::applicationData, application_data);
}
quorin_status quorin_configuration_encode(quorin_handle configuration, char* buffer, uint64_t capacity,
                                          uint64_t* size) {
    return c::text<KVTConfiguration>(configuration, &KVTConfiguration::encode, {buffer, capacity, size});
}
quorin_status quorin_configuration_from_encoded(quorin_text json, quorin_handle* configuration) {
    return c::fromEncoded<KVTConfiguration>(json, configuration);
}

quorin_status quorin_feature_name(quorin_handle feature, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<KVTFeature>(feature, &KVTFeature::name, {buffer, capacity, size});
}
quorin_status quorin_feature_params(quorin_handle feature, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<KVTFeature>(feature, &KVTFeature::params, {buffer, capacity, size});
}
quorin_status quorin_feature_encode(quorin_handle feature, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<KVTFeature>(feature, &KVTFeature::encode, {buffer, capacity, size});
}
quorin_status quorin_feature_from_encoded(quorin_text json, quorin_handle* feature) {
    return c::fromEncoded<KVTFeature>(json, feature);
}

quorin_status quorin_application_data_author(quorin_handle application_data, char* buffer, uint64_t capacity,
                                             uint64_t* size) {
    return c::text<Application>(application_data, &Application::author, {buffer, capacity, size});
}
quorin_status quorin_application_data_copyright(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                uint64_t* size) {
    return c::text<Application>(application_data, &Application::copyright, {buffer, capacity, size});
}
quorin_status quorin_application_data_link(quorin_handle application_data, char* buffer, uint64_t capacity,
                                           uint64_t* size) {
    return c::text<Application>(application_data, &Application::link, {buffer, capacity, size});
}
quorin_status quorin_application_data_support_email(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                    uint64_t* size) {
    return c::text<Application>(application_data, &Application::supportEmail, {buffer, capacity, size});
}
quorin_status quorin_application_data_latest_version(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                     uint64_t* size) {
    return c::text<Application>(application_data, &Application::latestVersion, {buffer, capacity, size});
}
quorin_status quorin_application_data_required_version(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                       uint64_t* size) {
    return c::text<Application>(application_data, &Application::requiredVersion, {buffer, capacity, size});
}
quorin_status quorin_application_data_encode(quorin_handle application_data, char* buffer, uint64_t capacity,
                                             uint64_t* size) {
    return c::text<Application>(application_data, &Application::encode, {buffer, capacity, size});
}
quorin_status quorin_application_data_from_encoded(quorin_text json, quorin_handle* application_data) {
    return c::fromEncoded<Application>(json, application_data);
}
