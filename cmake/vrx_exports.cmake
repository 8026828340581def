# Generates the export machinery of libvrxsn0 from the declarations of the
# public header: every line "VRXAPI(ret, vrxsX, (args))" is one export.
#
#   cmake -DHEADER=include/vrxs.h -DOUT_DIR=build/gen -P cmake/vrx_exports.cmake
#
# Outputs:
#   vrxs_stubs.S      per export a 10-byte stub in its own section, 16 bytes
#                     apart, that loads vrxsX_arraddr through the GOT and jumps
#                     through it; the slots vrxsX_arraddr in writable data, in
#                     stub order, each holding the address of n0_vrxsX
#   vrxs.map          linker version script: the exports global, all else local
#   vrxs_exports.txt  the export names, one a line, in table order
#   vrxs_signatures.h the export table for the tests: one line per export,
#                     VRX_EXPORT(vrxsX, "pSrc,pDst,len", "const Vrx32f* pSrc, ...")
#                     with the parameter names, comma-separated and in order
#                     ("" for none), and the argument list as written; the
#                     includer defines VRX_EXPORT
#   vrxs_table.json   the same table for the Python package: a JSON list with
#                     one entry per export, [name, return type, [[argument
#                     type, parameter name], ...]], types as written with
#                     runs of spaces folded to one

if(NOT HEADER OR NOT OUT_DIR)
  message(FATAL_ERROR "vrx_exports.cmake needs HEADER and OUT_DIR")
endif()

file(STRINGS "${HEADER}" lines REGEX "^VRXAPI\\(")
set(names "")
set(sigs "/* generated from the export table; do not edit */\n")
set(table "")
foreach(line IN LISTS lines)
  if(NOT line MATCHES "^VRXAPI\\([^,]+, *(vrxs[A-Za-z0-9_]+) *, *\\((.*)\\)\\)[ \t]*$")
    message(FATAL_ERROR "malformed export line in ${HEADER}: ${line}")
  endif()
  set(name "${CMAKE_MATCH_1}")
  string(STRIP "${CMAKE_MATCH_2}" args)
  string(REGEX MATCH "^VRXAPI\\(([^,]+)," _ret "${line}")
  string(STRIP "${CMAKE_MATCH_1}" ret)
  string(REGEX REPLACE "  +" " " ret "${ret}")
  set(jargs "")
  list(APPEND names "${name}")
  # Parameter names: the last identifier of each comma-separated argument.
  set(pnames "")
  if(NOT args STREQUAL "void" AND NOT args STREQUAL "")
    string(REPLACE "," ";" arglist "${args}")
    foreach(a IN LISTS arglist)
      string(STRIP "${a}" a)
      if(NOT a MATCHES "[*& ]([A-Za-z_][A-Za-z0-9_]*)$")
        message(FATAL_ERROR "unnamed parameter \"${a}\" of ${name} in ${HEADER}")
      endif()
      list(APPEND pnames "${CMAKE_MATCH_1}")
      set(pname "${CMAKE_MATCH_1}")
      string(REGEX REPLACE "[A-Za-z_][A-Za-z0-9_]*$" "" atype "${a}")
      string(STRIP "${atype}" atype)
      string(REGEX REPLACE "  +" " " atype "${atype}")
      string(REPLACE " *" "*" atype "${atype}")
      if(jargs)
        string(APPEND jargs ", ")
      endif()
      string(APPEND jargs "[\"${atype}\", \"${pname}\"]")
    endforeach()
  endif()
  string(REPLACE ";" "," pnames "${pnames}")
  string(REGEX REPLACE "  +" " " argtext "${args}")
  string(APPEND sigs "VRX_EXPORT(${name}, \"${pnames}\", \"${argtext}\")\n")
  string(REPLACE " *" "*" ret "${ret}")
  if(table)
    string(APPEND table ",\n")
  endif()
  string(APPEND table " [\"${name}\", \"${ret}\", [${jargs}]]")
endforeach()

list(LENGTH names count)
set(unique ${names})
list(REMOVE_DUPLICATES unique)
list(LENGTH unique ucount)
if(NOT count EQUAL ucount)
  foreach(n IN LISTS unique)
    list(FIND names "${n}" first)
    list(REMOVE_AT names ${first})
  endforeach()
  message(FATAL_ERROR "exported more than once: ${names}")
endif()

set(stubs "/* generated from the export table; do not edit */\n")
string(APPEND stubs "\t.file \"vrxs_stubs.S\"\n")
set(slots "\n\t.section .data.vrxs_slots,\"aw\",@progbits\n\t.p2align 6\n")
set(map "/* generated from the export table; do not edit */\n{\n  global:\n")
set(list_txt "")
foreach(n IN LISTS unique)
  string(APPEND stubs
    "\t.section .text.jmp_${n},\"ax\",@progbits\n"
    "\t.p2align 4\n"
    "\t.globl ${n}\n"
    "\t.type ${n},@function\n"
    "${n}:\n"
    "\tmovq ${n}_arraddr@GOTPCREL(%rip), %r11\n"
    "\tjmpq *(%r11)\n"
    "\t.size ${n},.-${n}\n")
  string(APPEND slots
    "\t.type ${n}_arraddr,@object\n"
    "${n}_arraddr:\n"
    "\t.quad n0_${n}\n"
    "\t.size ${n}_arraddr,8\n")
  string(APPEND map "    ${n};\n")
  string(APPEND list_txt "${n}\n")
endforeach()
string(APPEND map "  local:\n    *;\n};\n")
string(APPEND slots "\t.section .note.GNU-stack,\"\",@progbits\n")

file(MAKE_DIRECTORY "${OUT_DIR}")
file(WRITE "${OUT_DIR}/vrxs_stubs.S" "${stubs}${slots}")
file(WRITE "${OUT_DIR}/vrxs.map" "${map}")
file(WRITE "${OUT_DIR}/vrxs_exports.txt" "${list_txt}")
file(WRITE "${OUT_DIR}/vrxs_signatures.h" "${sigs}")
file(WRITE "${OUT_DIR}/vrxs_table.json" "[\n${table}\n]\n")
