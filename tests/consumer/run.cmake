# Installs the build into a scratch prefix, then builds and runs a small
# program against it, once through pkg-config and once through find_package.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(LAST_OUTPUT "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

# documentation and examples' sources
foreach(f LICENSE CHANGELOG.md README.md docs/guide.md docs/fft.md docs/statuses.md examples/spectrum_demo.c)
  if(NOT EXISTS "${prefix}/share/doc/vrxs/${f}")
    message(FATAL_ERROR "not installed: share/doc/vrxs/${f}")
  endif()
endforeach()

# pkg-config
find_program(PKG_CONFIG NAMES pkg-config pkgconf REQUIRED)
set(ENV{PKG_CONFIG_PATH} "")
file(GLOB_RECURSE pcfile "${prefix}/*/vrxs.pc")
get_filename_component(pcdir "${pcfile}" DIRECTORY)
set(ENV{PKG_CONFIG_PATH} "${pcdir}")
run(${PKG_CONFIG} --cflags --libs vrxs)
string(STRIP "${LAST_OUTPUT}" flags)
# The .pc file carries no rpath (distributions refuse one); a program that
# runs from a private prefix sets its own.
if(flags MATCHES "rpath")
  message(FATAL_ERROR "vrxs.pc puts an rpath into its users' links: ${flags}")
endif()
run(${PKG_CONFIG} --variable=libdir vrxs)
string(STRIP "${LAST_OUTPUT}" libdir)
separate_arguments(flags UNIX_COMMAND "${flags}")
run(cc -std=c99 -Wall -Werror "${SOURCE_DIR}/consumer.c" ${flags} "-Wl,-rpath,${libdir}" -o "${WORK_DIR}/consumer_pc")
run("${WORK_DIR}/consumer_pc")
message(STATUS "pkg-config consumer: ${LAST_OUTPUT}")

# find_package
run(${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/build" -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run("${WORK_DIR}/build/consumer")
message(STATUS "find_package consumer: ${LAST_OUTPUT}")
