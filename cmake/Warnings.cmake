# The warnings that every target of the project is compiled with; in another project they are that one's affair.
add_library(quorin_warnings INTERFACE)
target_compile_features(quorin_warnings INTERFACE cxx_std_20)
if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()
target_compile_options(quorin_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                                 -Wnull-dereference -Wformat=2 -Wformat-security
                                                 $<$<BOOL:${QUORIN_WERROR}>:-Werror>)
# g++ 12 sees overlapping copies in optimised string concatenations where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(quorin_warnings INTERFACE -Wno-restrict)
endif()
