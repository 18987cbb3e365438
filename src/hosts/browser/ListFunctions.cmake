# Writes OUTPUT: the functions of BELOW (libraries, separated by commas) that ABOVE (the same) has none of the same name
# of, and the patterns of the file PATTERNS, a line each, as a list that the linker reads.

# The functions of libraries, by NM.
function(list_functions libraries result)
  string(REPLACE "," ";" libraries "${libraries}")
  set(lines)
  foreach(library IN LISTS libraries)
    execute_process(COMMAND ${NM} --demangle ${library}
      OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
    # A name may hold what CMake takes for a list.
    string(REGEX REPLACE "[];[]" "?" symbols "${symbols}")
    string(REGEX MATCHALL " [TtWw] [^\n]+" names "${symbols}")
    list(APPEND lines ${names})
  endforeach()
  set(${result} ${lines} PARENT_SCOPE)
endfunction()

list_functions("${BELOW}" below)
# What templates make belongs to no floor.
list(FILTER below INCLUDE REGEX "^ [Tt]")
list_functions("${ABOVE}" above)
list(TRANSFORM below REPLACE "^ [Tt] " "")
list(TRANSFORM above REPLACE "^ [TtWw] " "")
list(REMOVE_ITEM below ${above})
# The linker counts angle brackets.
list(FILTER below EXCLUDE REGEX "operator[<>-]|[?\"]")
file(STRINGS ${PATTERNS} patterns REGEX "^[^#]")
list(APPEND below ${patterns})
list(REMOVE_DUPLICATES below)
list(JOIN below "\",\n\"" text)
file(WRITE ${OUTPUT} "[\"${text}\"]\n")
