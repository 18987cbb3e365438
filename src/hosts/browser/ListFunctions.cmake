# Writes OUTPUT: the functions of LIBRARIES (by NM, separated by commas) and the patterns of the file PATTERNS, a line
# each, as a list that the linker reads.
string(REPLACE "," ";" libraries "${LIBRARIES}")
set(lines)
foreach(library IN LISTS libraries)
  execute_process(COMMAND ${NM} --demangle ${library}
    OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
  # A name may hold what CMake takes for a list.
  string(REGEX REPLACE "[];[]" "?" symbols "${symbols}")
  string(REGEX MATCHALL " [Tt] [^\n]+" names "${symbols}")
  list(APPEND lines ${names})
endforeach()
list(TRANSFORM lines REPLACE "^ [Tt] " "")
# The linker counts angle brackets.
list(FILTER lines EXCLUDE REGEX "operator[<>-]|[?\"]")
file(STRINGS ${PATTERNS} patterns REGEX "^[^#]")
list(APPEND lines ${patterns})
list(REMOVE_DUPLICATES lines)
list(JOIN lines "\",\n\"" text)
file(WRITE ${OUTPUT} "[\"${text}\"]\n")
