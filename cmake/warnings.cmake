# Warnings are errors on both compilers. Third-party headers come in as system
# headers, so that only this project's own code is held to them.
add_library(onu_ability_warnings INTERFACE)
target_compile_options(onu_ability_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# Who holds which lock, where it is annotated.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(onu_ability_warnings INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wthread-safety -Wthread-safety-beta>)
endif()
