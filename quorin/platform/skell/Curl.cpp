#include "quorin/platform/skell/Curl.hpp"

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <type_traits>

namespace quorin::skell {
namespace {

/// The name that its binary interface has had since 2006.
constexpr const char* libraryName = "libcurl.so.4";

/// A function of the library and the member that holds it.
struct Function {
    const char* name;
    bool (*take)(Curl& curl, void* address);
};

template <auto member>
bool take(Curl& curl, void* address) {
    curl.*member = reinterpret_cast<std::remove_reference_t<decltype(curl.*member)>>(address);
    return address != nullptr;
}

constexpr std::array functions{
    Function{"curl_easy_cleanup", take<&Curl::easy_cleanup>},
    Function{"curl_easy_getinfo", take<&Curl::easy_getinfo>},
    Function{"curl_easy_init", take<&Curl::easy_init>},
    Function{"curl_easy_reset", take<&Curl::easy_reset>},
    Function{"curl_easy_setopt", take<&Curl::easy_setopt>},
    Function{"curl_easy_strerror", take<&Curl::easy_strerror>},
    Function{"curl_free", take<&Curl::free>},
    Function{"curl_global_init", take<&Curl::global_init>},
    Function{"curl_multi_add_handle", take<&Curl::multi_add_handle>},
    Function{"curl_multi_info_read", take<&Curl::multi_info_read>},
    Function{"curl_multi_init", take<&Curl::multi_init>},
    Function{"curl_multi_perform", take<&Curl::multi_perform>},
    Function{"curl_multi_poll", take<&Curl::multi_poll>},
    Function{"curl_multi_remove_handle", take<&Curl::multi_remove_handle>},
    Function{"curl_multi_setopt", take<&Curl::multi_setopt>},
    Function{"curl_multi_wakeup", take<&Curl::multi_wakeup>},
    Function{"curl_slist_append", take<&Curl::slist_append>},
    Function{"curl_slist_free_all", take<&Curl::slist_free_all>},
    Function{"curl_url", take<&Curl::url>},
    Function{"curl_url_cleanup", take<&Curl::url_cleanup>},
    Function{"curl_url_get", take<&Curl::url_get>},
    Function{"curl_url_set", take<&Curl::url_set>},
};

bool open(Curl& curl) {
    void* const library = dlopen(libraryName, RTLD_NOW | RTLD_LOCAL);
    return library && std::all_of(functions.begin(), functions.end(), [&](const Function& function) {
               return function.take(curl, dlsym(library, function.name));
           });
}

}  // namespace

const Curl* openCurl() {
    static Curl curl{};
    static const bool isOpen = open(curl);
    return isOpen ? &curl : nullptr;
}

}  // namespace quorin::skell
