# The Debian packages that CPack makes of the installed parts: `cpack` in the build folder, or `./dev packages`.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "The QuorinConfigManager developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own, the first line below
set(CPACK_PACKAGE_CONTACT "The QuorinConfigManager developers <maintainers@quorin.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL lib dev tool)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

# The name changes with the soname, so that programs of both sides of a break find their library.
set(library libquorinconfigmanager${quorin_soversion})
set(CPACK_DEBIAN_LIB_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_LIB_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIB_PACKAGE_DEPENDS libcurl4) # opened by the first request, which no tool sees
set(CPACK_DEBIAN_LIB_DESCRIPTION
    "remote configuration of branded video apps - shared library
Loads one JSON document from a URL or a file, picks the brand's section and
hands it over as a tree of typed values; keeps the identity values and cookies
that requests need, and builds and sends the requests.")

# What the static library is linked with comes from the packages behind its pkg-config modules.
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libquorinconfigmanager-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
set(depends "${library} (= ${PROJECT_VERSION})" libsimdjson-dev libsqlite3-dev uuid-dev libsodium-dev
            zlib1g-dev libbrotli-dev libpsl-dev liburiparser-dev libpugixml-dev)
list(JOIN depends ", " CPACK_DEBIAN_DEV_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_DEV_DESCRIPTION
    "remote configuration of branded video apps - development files
The headers, the static library, and what CMake and pkg-config need to find
them. No header includes one of another library.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME quorin)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS libcurl4)
set(CPACK_DEBIAN_TOOL_DESCRIPTION
    "reads remote configurations of branded video apps
For authors of such configurations and for support: shows what an app takes
from a document and what not, with line and column, and builds, prints or sends
the requests of its endpoints.")

# Each package documents itself under its own name.
foreach(part IN ITEMS lib dev tool)
    string(TOUPPER ${part} upper)
    set(folder ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    quorin_install_paper(CHANGELOG.md changelog ${folder} ${part})
endforeach()

# All that is installed, and nothing else.
add_custom_target(quorin_data ALL DEPENDS ${papers} ${scripts})
add_custom_target(quorin_installed DEPENDS quorin_data quorin_shared quorin_static quorin)

include(CPack)
