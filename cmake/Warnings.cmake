# Common compile options for every project target.
add_library(norvo_options INTERFACE)
target_compile_options(norvo_options INTERFACE -Wall -Wextra -ffp-contract=off -fno-fast-math)
if(NORVO_WERROR)
  target_compile_options(norvo_options INTERFACE -Werror)
endif()
# GCC 12 at -O3 reports overlapping copies inside std::string's own code wherever a literal is
# added to or inserted into a string (GCC bug 105329, mended in GCC 13). Only that diagnostic,
# only on that compiler: every other warning still stops the build.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(norvo_options INTERFACE -Wno-restrict)
endif()
if(NORVO_SANITIZE)
  target_compile_options(norvo_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=undefined)
  target_link_options(norvo_options INTERFACE -fsanitize=address,undefined)
endif()
