# Writes OUTPUT: the functions of LIBRARY (by NM) and the patterns of the file PATTERNS, a line each, as a list that the
# linker reads.
execute_process(COMMAND ${NM} ${LIBRARY} OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " [Tt] [A-Za-z_0-9]+" names "${symbols}")
list(TRANSFORM names REPLACE "^ [Tt] " "")
file(STRINGS ${PATTERNS} patterns REGEX "^[^#]")
list(APPEND names ${patterns})
list(REMOVE_DUPLICATES names)
list(JOIN names "\",\n\"" text)
file(WRITE ${OUTPUT} "[\"${text}\"]\n")
