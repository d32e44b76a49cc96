# Compiler warnings for the project's own targets, and the sanitizer switches.
function(zk_target_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports overlapping copies inside std::basic_string that cannot happen once
    # optimising inlines them (its -Wrestrict false positives); the warning would only be noise.
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(ZK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

if(ZK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

if(ZK_BUILD_FUZZ)
  # Everything the fuzz targets link is instrumented for coverage and checked by the sanitizers.
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
