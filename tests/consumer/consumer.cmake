# One step of the consumer tests, chosen by `route`; see CMakeLists.txt beside this file.
cmake_minimum_required(VERSION 3.25)

# Installed at one place, used at another: an installed tree can be moved.
set(firstPrefix "${workDir}/installed")
set(prefix "${workDir}/moved")

function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Runs the program of a route and keeps what it prints in <route>.txt.
function(record program)
  set(environment)
  if(ARGC GREATER 1)
    set(environment "LD_LIBRARY_PATH=${ARGV1}")
  endif()
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -E env ${environment} "${program}"
    OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  message("${output}")
  file(WRITE "${workDir}/${route}.txt" "${output}")
endfunction()

# Installed are exactly the public headers, each under its own path.
function(check_headers)
  file(GLOB_RECURSE wanted RELATIVE "${sourceDir}" "${sourceDir}/zrBase/*.h")
  list(FILTER wanted EXCLUDE REGEX "/internal/")
  file(GLOB_RECURSE found RELATIVE "${prefix}/${includeDir}" "${prefix}/${includeDir}/*")
  list(SORT wanted)
  list(SORT found)
  if(NOT wanted STREQUAL found)
    message(FATAL_ERROR "installed headers\n  ${found}\nwanted\n  ${wanted}")
  endif()
endfunction()

if(route STREQUAL "install")
  file(REMOVE_RECURSE "${firstPrefix}" "${prefix}")
  run("${CMAKE_COMMAND}" --install "${buildDir}" --prefix "${firstPrefix}")
  file(RENAME "${firstPrefix}" "${prefix}")
  check_headers()
  foreach(name libzrBase.so libzrBase.so.0)
    if(NOT EXISTS "${prefix}/${libDir}/${name}")
      message(FATAL_ERROR "${name} is not installed")
    endif()
  endforeach()
  if(EXISTS "${prefix}/bin/zrbase")
    # The command finds the library from where it stands.
    run("${prefix}/bin/zrbase" --help)
  endif()

elseif(route STREQUAL "package" OR route STREQUAL "subproject")
  file(REMOVE_RECURSE "${workDir}/${route}-build")
  run("${CMAKE_COMMAND}"
      -G "${generator}"
      -S "${sourceDir}/tests/consumer/${route}"
      -B "${workDir}/${route}-build"
      "-DCMAKE_CXX_COMPILER=${compiler}"
      "-DCMAKE_PREFIX_PATH=${prefix}"
      "-DZRBASE_SOURCE_DIR=${sourceDir}")
  run("${CMAKE_COMMAND}" --build "${workDir}/${route}-build" --parallel 2)
  set(runnable YES)
  if(route STREQUAL "package")
    file(READ "/proc/cpuinfo" processor)
    if(processor MATCHES "flags" AND NOT processor MATCHES "[ \t]fma[ \n]")
      set(runnable NO)
    endif()
  endif()
  if(runnable)
    record("${workDir}/${route}-build/consumer")
  else()
    message("built, but this processor has no fused multiply-add to run it with")
    file(REMOVE "${workDir}/${route}.txt")
  endif()

elseif(route STREQUAL "pkgconfig")
  set(ENV{PKG_CONFIG_PATH} "${prefix}/${libDir}/pkgconfig")
  execute_process(
    COMMAND pkg-config --cflags --libs zrBase
    OUTPUT_VARIABLE flags
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT flags MATCHES "-ffp-contract=off")
    message(FATAL_ERROR "the flags lack -ffp-contract=off: ${flags}")
  endif()
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run("${compiler}" -std=c++17 -O1 "${sourceDir}/tests/consumer/consumer.cpp" -o "${workDir}/pkgconfigConsumer" ${flags})
  record("${workDir}/pkgconfigConsumer" "${prefix}/${libDir}")

elseif(route STREQUAL "compare")
  file(READ "${workDir}/pkgconfig.txt" expected)
  foreach(other package subproject)
    if(NOT EXISTS "${workDir}/${other}.txt")
      continue()
    endif()
    file(READ "${workDir}/${other}.txt" output)
    if(NOT output STREQUAL expected)
      message(FATAL_ERROR "the ${other} client computed\n${output}\nthe pkg-config client\n${expected}")
    endif()
  endforeach()

else()
  message(FATAL_ERROR "no such route: ${route}")
endif()
