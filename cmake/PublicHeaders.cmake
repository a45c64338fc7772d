# Installs the headers that hosts may include. A header says by itself that it is one: it gives its declarations default
# visibility, or it only gathers others. The tests of the packages see that these include no others. Run by the
# installation, with SOURCES and DESTINATION set.
file(GLOB_RECURSE headers RELATIVE ${SOURCES} ${SOURCES}/quorin/*.h ${SOURCES}/quorin/*.hpp)
foreach(header IN LISTS headers)
    file(STRINGS ${SOURCES}/${header} visible REGEX "^#pragma GCC visibility push\\(default\\)$")
    file(STRINGS ${SOURCES}/${header} code REGEX "^[^#/]")
    if(visible OR NOT code)
        cmake_path(GET header PARENT_PATH folder)
        file(INSTALL ${SOURCES}/${header} DESTINATION ${DESTINATION}/${folder})
    endif()
endforeach()
