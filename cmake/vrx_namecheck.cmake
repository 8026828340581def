# Fails when a name of the export table is not written in src/ as a whole
# word. Every exported function must be findable by grep: its implementation
# is written N0(vrxsX), never pasted together by a macro.
#
#   cmake -DHEADER=include/vrxs.h -DSRC_DIR=src -P cmake/vrx_namecheck.cmake

if(NOT HEADER OR NOT SRC_DIR)
  message(FATAL_ERROR "vrx_namecheck.cmake needs HEADER and SRC_DIR")
endif()

file(STRINGS "${HEADER}" lines REGEX "^VRXAPI\\(")
set(names "")
foreach(line IN LISTS lines)
  if(line MATCHES "^VRXAPI\\([^,]+, *(vrxs[A-Za-z0-9_]+) *,")
    list(APPEND names "${CMAKE_MATCH_1}")
  endif()
endforeach()

# Every identifier of the sources that contains "vrxs"; one that begins with
# it is a whole-word occurrence of that name (n0_vrxsX is not).
# Code only: a name in src/README.md or another text does not count.
file(GLOB_RECURSE sources "${SRC_DIR}/*.cpp" "${SRC_DIR}/*.h" "${SRC_DIR}/*.S" "${SRC_DIR}/*.c")
set(written "")
foreach(f IN LISTS sources)
  file(READ "${f}" text)
  string(REGEX MATCHALL "[A-Za-z0-9_]*vrxs[A-Za-z0-9_]*" ids "${text}")
  list(FILTER ids INCLUDE REGEX "^vrxs")
  list(APPEND written ${ids})
endforeach()
list(REMOVE_DUPLICATES written)

set(missing ${names})
list(REMOVE_ITEM missing ${written})
list(LENGTH names total)
list(LENGTH missing nmissing)
if(nmissing GREATER 0)
  string(REPLACE ";" "\n  " text "${missing}")
  message("exported names not written in ${SRC_DIR}:\n  ${text}")
  message(FATAL_ERROR "${nmissing} of ${total} exported names are not written in ${SRC_DIR}")
endif()
message(STATUS "all ${total} exported names are written in ${SRC_DIR}")
