# The warnings that every target of the project is compiled with.
add_library(quorin_warnings INTERFACE)
target_compile_features(quorin_warnings INTERFACE cxx_std_20)
target_compile_options(quorin_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                                 $<$<BOOL:${QUORIN_WERROR}>:-Werror>)
