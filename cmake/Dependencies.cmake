# What the library is linked with besides the standard library; docs/dependencies.md says why each of them. The build
# reads this, and so does the installed package for a host that links the static library. Needs PkgConfig and Threads.
set(quorin_modules simdjson sqlite3 uuid libsodium zlib libbrotlidec libpsl liburiparser pugixml)
set(quorin_platform_libraries Threads::Threads ${CMAKE_DL_LIBS})
set(quorin_missing_modules)
foreach(module IN LISTS quorin_modules)
    pkg_check_modules(quorin_${module} QUIET IMPORTED_TARGET GLOBAL ${module})
    if(quorin_${module}_FOUND)
        list(APPEND quorin_platform_libraries PkgConfig::quorin_${module})
    else()
        list(APPEND quorin_missing_modules ${module})
    endif()
endforeach()
