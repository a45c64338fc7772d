#ifndef QUORIN_FACADE_C_MANAGER_H
#define QUORIN_FACADE_C_MANAGER_H

#include "quorin/facade/c/base.h"
#include "quorin/facade/c/integers.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// The one manager of the process, which the first function that needs it builds.

/// Says what the app is before the first use of the library: its name and version, which requests bear, and the file
/// that keeps the identity values. No text: the standard ones. QUORIN_REFUSED, with no effect, where it is too late.
quorin_status quorin_install(quorin_text bundle_name, quorin_text bundle_version, quorin_text store_path);

/// A stream that loads the configuration from an http or https URL when it is subscribed to: one configuration, or an
/// error. QUORIN_BRAND_UNDEFINED loads without a brand; no text as version is "1.0.0".
quorin_status quorin_manager_initialize(quorin_text url, quorin_text device_id, int32_t brand, quorin_text version,
                                        quorin_handle* observable);

/// The configuration of the last successful load.
quorin_status quorin_manager_configuration(quorin_handle* configuration);

/// 1 when there is one, else 0.
quorin_status quorin_manager_configured(int32_t* configured);

/// The account identifier. Assigning it stores it and makes the account cookie anew, for the domain
/// that the store holds; no text removes it. QUORIN_NO_MEMORY may come of an assignment that was made: its value tells,
/// and all observers that have memory for it were told. To assign it again stores it.
quorin_status quorin_manager_kova(char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_manager_set_kova(quorin_text value);

/// The parent profile with the token; QUORIN_ABSENT without a token. Assigning one assigns the parent's identifier and,
/// unless it is empty, the token; QUORIN_NONE changes nothing.
quorin_status quorin_manager_profile_bind(quorin_handle* anonymous_bind);
quorin_status quorin_manager_set_profile_bind(quorin_handle anonymous_bind);

/// An assignment keeps what the library makes of the text, for this process.
quorin_status quorin_manager_user_agent(char* buffer, uint64_t capacity, uint64_t* size);
quorin_status quorin_manager_set_user_agent(quorin_text existing);

/// What support needs to know of the app's configuration, for the user to send: ten lines without any secret.
quorin_status quorin_manager_support_card(char* buffer, uint64_t capacity, uint64_t* size);

/// Streams of every assignment made after the subscription; their values are text objects, and
/// QUORIN_NONE where the value was removed.
quorin_status quorin_manager_kova_observer(quorin_handle* observable);
quorin_status quorin_manager_parent_profile_id_observer(quorin_handle* observable);
quorin_status quorin_manager_child_profile_id_observer(quorin_handle* observable);
quorin_status quorin_manager_profile_jwt_observer(quorin_handle* observable);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
