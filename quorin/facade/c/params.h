#ifndef QUORIN_FACADE_C_PARAMS_H
#define QUORIN_FACADE_C_PARAMS_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// What a host says of one call of an endpoint. What was not set is absent, an empty list of pairs is not, and
/// parameters that were not declared valid are refused by the guard. An assignment replaces what was set before.
quorin_status quorin_params_make(quorin_handle* params);
quorin_status quorin_params_set_headers(quorin_handle params, const quorin_pair* headers, uint64_t count);

/// Texts of the URL, delimiters included, and what to put in their place.
quorin_status quorin_params_set_url_mapping(quorin_handle params, const quorin_pair* mapping, uint64_t count);

/// Pairs of the query, not escaped.
quorin_status quorin_params_set_query_parameters(quorin_handle params, const quorin_pair* query, uint64_t count);

/// The content of the body: a JSON object.
quorin_status quorin_params_set_dictionary_representation(quorin_handle params, quorin_text json);

/// 0 is no, any other integer yes.
quorin_status quorin_params_set_remove_user_agent(quorin_handle params, int32_t remove);
quorin_status quorin_params_set_has_valid_params(quorin_handle params, int32_t valid);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
