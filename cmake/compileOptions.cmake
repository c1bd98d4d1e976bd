# What every target of this project is compiled with. Usage requirements of the library are set on the library itself.
#
# zrbase_own_code(target): the language level, warnings and sanitizers of our own code.

set(zrbaseWarnings -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)

function(zrbase_own_code target)
  target_compile_features(${target} PRIVATE cxx_std_17)
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               CXX_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON
               POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${target} PRIVATE ${zrbaseWarnings})
  if(ZRBASE_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(ZRBASE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${ZRBASE_SANITIZE} -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
    target_link_options(${target} PRIVATE -fsanitize=${ZRBASE_SANITIZE})
  endif()
  if(ZRBASE_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()
