# SQLite for a browser's build, from the amalgamation that `npm ci` brings: there is no library of the system to link. It
# stands under the name that a desktop's build has for the system's own, so that whoever links it need not know which.
set(sqlite_folder ${CMAKE_SOURCE_DIR}/node_modules/better-sqlite3/deps/sqlite3)
if(NOT EXISTS ${sqlite_folder}/sqlite3.c)
  message(FATAL_ERROR "SQLite's source is not there: run `npm ci` in ${CMAKE_SOURCE_DIR}.")
endif()

enable_language(C)
add_library(sqlite3 STATIC ${sqlite_folder}/sqlite3.c)
# SYSTEM: its header is held to no warnings of ours, as a header of the system is not.
target_include_directories(sqlite3 SYSTEM PUBLIC ${sqlite_folder})
# One thread; no shared memory, so no write-ahead log; nothing to load; and a text in double quotes is no text.
target_compile_definitions(sqlite3 PRIVATE
  SQLITE_THREADSAFE=0 SQLITE_OMIT_WAL SQLITE_OMIT_LOAD_EXTENSION SQLITE_DQS=0)
target_compile_options(sqlite3 PRIVATE -O2 -w)
add_library(PkgConfig::SQLITE ALIAS sqlite3)
