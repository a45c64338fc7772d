#pragma once

#include <curl/curl.h>

#include <string_view>

namespace quorin::skell {

/// libcurl, which is not linked but opened by the first request: to load it, and some thirty libraries with it, takes
/// most of the time in which a program starts, and many programs send nothing.
struct Curl {
    decltype(&curl_easy_cleanup) easy_cleanup;
    decltype(&curl_easy_getinfo) easy_getinfo;
    decltype(&curl_easy_init) easy_init;
    decltype(&curl_easy_reset) easy_reset;
    decltype(&curl_easy_setopt) easy_setopt;
    decltype(&curl_easy_strerror) easy_strerror;
    decltype(&curl_free) free;
    decltype(&curl_global_init) global_init;
    decltype(&curl_multi_add_handle) multi_add_handle;
    decltype(&curl_multi_info_read) multi_info_read;
    decltype(&curl_multi_init) multi_init;
    decltype(&curl_multi_perform) multi_perform;
    decltype(&curl_multi_poll) multi_poll;
    decltype(&curl_multi_remove_handle) multi_remove_handle;
    decltype(&curl_multi_setopt) multi_setopt;
    decltype(&curl_multi_wakeup) multi_wakeup;
    decltype(&curl_slist_append) slist_append;
    decltype(&curl_slist_free_all) slist_free_all;
    decltype(&curl_url) url;
    decltype(&curl_url_cleanup) url_cleanup;
    decltype(&curl_url_get) url_get;
    decltype(&curl_url_set) url_set;
};

/// What is said where it cannot be.
inline constexpr std::string_view noCurl = "libcurl.so.4 cannot be opened; install it";

/// Opens the library at the first call, and never closes it. Null where the system has none. Any thread.
const Curl* openCurl();

/// The open library: for those who have asked `openCurl`, and for all that happens to a request.
inline const Curl& curl() { return *openCurl(); }

}  // namespace quorin::skell
