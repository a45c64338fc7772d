# One object library for each floor, lowest first, and the one library that hosts link to, static and shared.
# The test "floors" keeps includes from running upward.
find_package(Threads REQUIRED GLOBAL)
find_package(PkgConfig REQUIRED)
include(cmake/Dependencies.cmake)
# Opened by the first request and not linked: only its headers are wanted here.
pkg_check_modules(quorin_libcurl QUIET IMPORTED_TARGET GLOBAL libcurl)
if(NOT quorin_libcurl_FOUND)
    list(APPEND quorin_missing_modules libcurl)
endif()
if(quorin_missing_modules)
    message(FATAL_ERROR "pkg-config does not find ${quorin_missing_modules}")
endif()

set(quorin_floors platform table services model context core services/requests facade)
foreach(floor IN LISTS quorin_floors)
    string(REPLACE / _ name quorin_${floor})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/quorin/${floor}/*.cpp)
    if(floor STREQUAL services)
        list(FILTER sources EXCLUDE REGEX /services/requests/) # a floor of its own, further up
    endif()
    add_library(${name} OBJECT ${sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE quorin_warnings)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
    list(APPEND quorin_objects $<TARGET_OBJECTS:${name}>)
endforeach()
target_link_libraries(quorin_platform PRIVATE ${quorin_platform_libraries})
target_include_directories(quorin_platform SYSTEM PRIVATE ${quorin_libcurl_INCLUDE_DIRS})

# The one place where the version enters the code.
set_source_files_properties(
    quorin/core/QuorinConfigManagerVersion.cpp PROPERTIES COMPILE_DEFINITIONS
    "QUORIN_VERSION=\"${PROJECT_VERSION}\";QUORIN_VERSION_NUMBER=${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")

foreach(kind IN ITEMS Static Shared)
    string(TOLOWER ${kind} suffix)
    string(TOUPPER ${kind} type)
    add_library(quorin_${suffix} ${type} ${quorin_objects})
    set_target_properties(quorin_${suffix} PROPERTIES OUTPUT_NAME QuorinConfigManager EXPORT_NAME ConfigManager${kind})
    target_compile_features(quorin_${suffix} PUBLIC cxx_std_20)
    target_include_directories(quorin_${suffix} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    target_link_libraries(quorin_${suffix} PRIVATE ${quorin_platform_libraries})
    add_library(Quorin::ConfigManager${kind} ALIAS quorin_${suffix})
endforeach()

# Below 1.0 a minor version may break the binary interface, from then on a major one.
set(quorin_soversion ${PROJECT_VERSION_MAJOR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(quorin_soversion 0.${PROJECT_VERSION_MINOR})
endif()
set(exports ${PROJECT_SOURCE_DIR}/cmake/QuorinConfigManager.map)
set_target_properties(quorin_shared PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${quorin_soversion}
                                               LINK_DEPENDS ${exports})
# Its request thread runs to the end of the process, so it is never unloaded.
target_link_options(quorin_shared PRIVATE -Wl,--version-script=${exports} -Wl,--as-needed -Wl,-z,nodelete)

# What hosts link to: the static library, unless they say otherwise as usual. Our own programs use what the shared one
# hides, and link to the static one by its name.
if(BUILD_SHARED_LIBS)
    add_library(Quorin::ConfigManager ALIAS quorin_shared)
else()
    add_library(Quorin::ConfigManager ALIAS quorin_static)
endif()
if(NOT PROJECT_IS_TOP_LEVEL)
    set_target_properties(quorin_static quorin_shared PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
