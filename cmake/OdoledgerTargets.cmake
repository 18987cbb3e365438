# What every target of the project is built with, and how a folder becomes a library.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Programs are position-independent whatever the compiler's own default is.
if(NOT EMSCRIPTEN)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
endif()

add_library(odoledger_flags INTERFACE)
target_include_directories(odoledger_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
# Floats stay single step by step: no fused multiply-add, no reordering.
target_compile_options(odoledger_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -ffp-contract=off)
# Warnings are errors with the compilers that CI goes by. A newer one warns of more, also where nothing is wrong, and must
# not keep anybody from the program.
target_compile_options(odoledger_flags INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Werror>
  $<$<AND:$<CXX_COMPILER_ID:Clang>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,15>>:-Werror>)
target_compile_definitions(odoledger_flags INTERFACE $<$<NOT:$<CONFIG:Debug>>:_GLIBCXX_ASSERTIONS>)
if(EMSCRIPTEN)
  # Also at link. The rest of the hardening is the browser's own.
  target_compile_options(odoledger_flags INTERFACE -fexceptions)
  target_link_options(odoledger_flags INTERFACE -fexceptions)
else()
  target_compile_options(odoledger_flags INTERFACE -fstack-protector-strong)
  # What a program needs at run time is bound before it starts, and read-only from then on.
  target_link_options(odoledger_flags INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()
# GCC 12 reports overlapping copies inside std::string where there are none.
target_compile_options(odoledger_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(ODOLEDGER_SANITIZE)
  # GCC 12 cannot follow initialisations through the sanitizers' own code.
  target_compile_options(odoledger_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(odoledger_flags INTERFACE -fsanitize=address,undefined)
elseif(ODOLEDGER_FUZZ)
  target_compile_options(odoledger_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined
    -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(odoledger_flags INTERFACE -fsanitize=address,undefined)
elseif(NOT EMSCRIPTEN)
  target_compile_options(odoledger_flags INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()

# odoledger_library(NAME [DEPENDS lib...]): a static library of all the sources in the current folder.
function(odoledger_library name)
  cmake_parse_arguments(arg "" "" "DEPENDS;SOURCES" ${ARGN})
  if(arg_SOURCES)
    set(sources ${arg_SOURCES})
  else()
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  endif()
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC odoledger_flags ${arg_DEPENDS})
endfunction()

# odoledger_test(NAME DEPENDS lib...): a GoogleTest program of all the sources in the current folder.
function(odoledger_test name)
  cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE odoledger_flags ${arg_DEPENDS} GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 300 PROPERTIES TIMEOUT 900)
endfunction()
