# What `cmake --install` puts in place, in three parts: `lib` to run programs that are linked to the shared library,
# `dev` to build them, `tool` for the program. Every path is relative, so a tree may be moved as a whole.
if(CMAKE_LIBRARY_ARCHITECTURE)
    # The folder that Debian's tools search below any prefix, so one build serves an installation and the packages.
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Where libraries go, below the prefix")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(quorin_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QuorinConfigManager)
foreach(kind IN ITEMS Static Shared)
    string(TOLOWER ${kind} suffix)
    target_include_directories(quorin_${suffix} INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    install(TARGETS quorin_${suffix} EXPORT quorin_${suffix}
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT lib NAMELINK_COMPONENT dev
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
    install(EXPORT quorin_${suffix} FILE QuorinConfigManager${kind}.cmake NAMESPACE Quorin::
            DESTINATION ${quorin_cmake_dir} COMPONENT dev)
endforeach()

# The same versions go together as share a soname.
set(compatibility SameMajorVersion)
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(compatibility SameMinorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuorinConfigManagerConfigVersion.cmake
                                 COMPATIBILITY ${compatibility})
install(FILES cmake/QuorinConfigManagerConfig.cmake ${PROJECT_BINARY_DIR}/QuorinConfigManagerConfigVersion.cmake
        DESTINATION ${quorin_cmake_dir} COMPONENT dev)
install(FILES cmake/Dependencies.cmake RENAME QuorinConfigManagerDependencies.cmake
        DESTINATION ${quorin_cmake_dir} COMPONENT dev)

# For those who build without CMake. Of a static library's libraries only these are named, not theirs in turn, which are
# wanted by nobody who links to the shared libraries of the system.
set(quorin_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH quorin_pc_prefix /${quorin_pc_dir} /)
set(quorin_pc_libraries -lstdc++ ${CMAKE_THREAD_LIBS_INIT})
if(CMAKE_DL_LIBS)
    list(APPEND quorin_pc_libraries -l${CMAKE_DL_LIBS})
endif()
foreach(module IN LISTS quorin_modules)
    list(APPEND quorin_pc_libraries ${quorin_${module}_LDFLAGS})
endforeach()
list(REMOVE_DUPLICATES quorin_pc_libraries)
list(JOIN quorin_pc_libraries " " quorin_pc_libraries)
configure_file(cmake/QuorinConfigManager.pc.in ${PROJECT_BINARY_DIR}/QuorinConfigManager.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/QuorinConfigManager.pc DESTINATION ${quorin_pc_dir} COMPONENT dev)

install(CODE "set(SOURCES \"${PROJECT_SOURCE_DIR}\")
set(DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}\")
include(\"\${SOURCES}/cmake/PublicHeaders.cmake\")" COMPONENT dev)

install(TARGETS quorin RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)

# Papers are installed compressed, without the name and time of the original, so that they come out alike every time.
set(papers)
function(quorin_install_paper source paper folder component)
    set(compressed ${PROJECT_BINARY_DIR}/papers/${paper}.gz)
    if(NOT compressed IN_LIST papers)
        add_custom_command(OUTPUT ${compressed} COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/${source} > ${compressed}
                           DEPENDS ${PROJECT_SOURCE_DIR}/${source} VERBATIM)
        set(papers ${papers} ${compressed} PARENT_SCOPE)
    endif()
    install(FILES ${compressed} DESTINATION ${folder} COMPONENT ${component})
endfunction()
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/papers)
quorin_install_paper(docs/man/quorin.1 quorin.1 ${CMAKE_INSTALL_MANDIR}/man1 tool)

# The program writes the completions itself, so not where it cannot run.
set(scripts)
if(NOT CMAKE_CROSSCOMPILING)
    set(bash_completion bash-completion/completions/quorin)
    set(zsh_completion zsh/vendor-completions/_quorin)
    set(fish_completion fish/vendor_completions.d/quorin.fish)
    foreach(shell IN ITEMS bash zsh fish)
        set(script ${PROJECT_BINARY_DIR}/completions/${${shell}_completion})
        cmake_path(GET script PARENT_PATH folder)
        file(MAKE_DIRECTORY ${folder})
        add_custom_command(OUTPUT ${script} COMMAND quorin completion ${shell} > ${script} DEPENDS quorin VERBATIM)
        list(APPEND scripts ${script})
    endforeach()
    install(DIRECTORY ${PROJECT_BINARY_DIR}/completions/ DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT tool)
endif()
