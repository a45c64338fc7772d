#ifndef QUORIN_FACADE_C_CONFIGURATION_H
#define QUORIN_FACADE_C_CONFIGURATION_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// A configuration and its parts: objects that never change, each for itself; a part outlives the handle of the whole.
/// `..._encode` yields the archived form as JSON, and `..._from_encoded` makes an object of it again, a
/// configuration without brand, device and version: QUORIN_ABSENT where the map makes none. What is nested too deep to
/// parse (512 levels, of which the archive adds a few) is QUORIN_INVALID_ARGUMENT.

/// QUORIN_BRAND_UNDEFINED where it was loaded without one, or for one that has no integer.
quorin_status quorin_configuration_brand(quorin_handle configuration, int32_t* brand);
quorin_status quorin_configuration_device(quorin_handle configuration, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_configuration_version(quorin_handle configuration, char* buffer, uint64_t capacity,
                                           uint64_t* size);

/// Maps of web services, and of features.
quorin_status quorin_configuration_web_services(quorin_handle configuration, quorin_handle* map);
quorin_status quorin_configuration_features(quorin_handle configuration, quorin_handle* map);
quorin_status quorin_configuration_application_data(quorin_handle configuration, quorin_handle* application_data);
quorin_status quorin_configuration_encode(quorin_handle configuration, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_configuration_from_encoded(quorin_text json, quorin_handle* configuration);

quorin_status quorin_feature_name(quorin_handle feature, char* buffer, uint64_t capacity, uint64_t* size);

/// A JSON object.
quorin_status quorin_feature_params(quorin_handle feature, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_feature_encode(quorin_handle feature, char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_feature_from_encoded(quorin_text json, quorin_handle* feature);

quorin_status quorin_application_data_author(quorin_handle application_data, char* buffer, uint64_t capacity,
                                             uint64_t* size);
quorin_status quorin_application_data_copyright(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                uint64_t* size);
quorin_status quorin_application_data_link(quorin_handle application_data, char* buffer, uint64_t capacity,
                                           uint64_t* size);
quorin_status quorin_application_data_support_email(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                    uint64_t* size);
quorin_status quorin_application_data_latest_version(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                     uint64_t* size);
quorin_status quorin_application_data_required_version(quorin_handle application_data, char* buffer, uint64_t capacity,
                                                       uint64_t* size);
quorin_status quorin_application_data_encode(quorin_handle application_data, char* buffer, uint64_t capacity,
                                             uint64_t* size);
quorin_status quorin_application_data_from_encoded(quorin_text json, quorin_handle* application_data);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
