# What makes a mistake end the program instead of letting it be used: checks of the stack and of copies whose bounds the
# compiler knows, and tables of addresses that are written once, before the program starts. Optimised builds only, because
# the checks of copies need that; in another project all of it is that one's affair.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    add_compile_options($<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-fstack-protector-strong>
                        $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-fstack-clash-protection>)
    add_compile_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3>")
    add_link_options(-Wl,-z,relro -Wl,-z,now)
endif()
