#pragma once

#include <curl/curl.h>

#include <string_view>

/// The functions that we call, by the names of libcurl without "curl_".
#define QUORIN_CURL_FUNCTIONS(function) \
    function(easy_cleanup) function(easy_getinfo) function(easy_init) function(easy_reset) function(easy_setopt) \
    function(easy_strerror) function(free) function(global_init) function(multi_add_handle) function(multi_info_read) \
    function(multi_init) function(multi_perform) function(multi_poll) function(multi_remove_handle) \
    function(multi_setopt) function(multi_wakeup) function(slist_append) function(slist_free_all) function(url) \
    function(url_cleanup) function(url_get) function(url_set)

namespace quorin::skell {

/// libcurl, which is not linked but opened by the first request: to load it, and some thirty libraries with it, takes
/// most of the time in which a program starts, and many programs send nothing.
struct Curl {
#define QUORIN_CURL_MEMBER(name) decltype(&curl_##name) name;
    QUORIN_CURL_FUNCTIONS(QUORIN_CURL_MEMBER)
#undef QUORIN_CURL_MEMBER
};

/// What is said where it cannot be.
inline constexpr std::string_view noCurl = "libcurl.so.4 cannot be opened; install it";

/// Opens the library at the first call, and never closes it. Null where the system has none. Any thread.
const Curl* openCurl();

/// The open library: for those who have asked `openCurl`, and for all that happens to a request.
inline const Curl& curl() { return *openCurl(); }

}  // namespace quorin::skell
