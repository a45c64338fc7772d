#include "quorin/platform/skell/Curl.hpp"

#include <dlfcn.h>

namespace quorin::skell {
namespace {

/// The name that its binary interface has had since 2006.
constexpr const char* libraryName = "libcurl.so.4";

template <class Function>
bool find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

bool open(Curl& curl) {
    void* const library = dlopen(libraryName, RTLD_NOW | RTLD_LOCAL);
    if (!library) return false;
    bool isWhole = true;
#define QUORIN_CURL_FIND(name) isWhole = find(library, "curl_" #name, curl.name) && isWhole;
    QUORIN_CURL_FUNCTIONS(QUORIN_CURL_FIND)
#undef QUORIN_CURL_FIND
    return isWhole;
}

}  // namespace

const Curl* openCurl() {
    static Curl curl{};
    static const bool isOpen = open(curl);
    return isOpen ? &curl : nullptr;
}

}  // namespace quorin::skell
