# Common compile options for every project target.
add_library(norvo_options INTERFACE)
target_compile_options(norvo_options INTERFACE -Wall -Wextra -ffp-contract=off -fno-fast-math)
if(NORVO_WERROR)
  target_compile_options(norvo_options INTERFACE -Werror)
endif()
if(NORVO_SANITIZE)
  target_compile_options(norvo_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=undefined)
  target_link_options(norvo_options INTERFACE -fsanitize=address,undefined)
endif()
