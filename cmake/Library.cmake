# One object library for each floor, lowest first, and the one library that hosts link to, static and shared.
# The test "floors" keeps includes from running upward.
set(quorin_floors platform table services model context core services/requests facade)
set(quorin_platform_libraries PkgConfig::simdjson PkgConfig::curl PkgConfig::sqlite3 PkgConfig::uuid PkgConfig::crypto
                              PkgConfig::zlib PkgConfig::brotli PkgConfig::psl PkgConfig::uriparser PkgConfig::pugixml
                              Threads::Threads)

foreach(floor IN LISTS quorin_floors)
    string(REPLACE / _ name quorin_${floor})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/quorin/${floor}/*.cpp)
    if(floor STREQUAL services)
        list(FILTER sources EXCLUDE REGEX /services/requests/) # a floor of its own, further up
    endif()
    add_library(${name} OBJECT ${sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE quorin_warnings)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    list(APPEND quorin_objects $<TARGET_OBJECTS:${name}>)
endforeach()
target_link_libraries(quorin_platform PRIVATE ${quorin_platform_libraries})

foreach(kind IN ITEMS STATIC SHARED)
    string(TOLOWER ${kind} suffix)
    add_library(quorin_${suffix} ${kind} ${quorin_objects})
    set_target_properties(quorin_${suffix} PROPERTIES OUTPUT_NAME QuorinConfigManager)
    target_compile_features(quorin_${suffix} PUBLIC cxx_std_20)
    target_include_directories(quorin_${suffix} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    target_link_libraries(quorin_${suffix} PRIVATE ${quorin_platform_libraries})
endforeach()
set_target_properties(quorin_shared PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
add_library(Quorin::ConfigManager ALIAS quorin_static)
