# How every target of this project is built.

add_library(qvl_options INTERFACE)
target_include_directories(qvl_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(qvl_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror)

# CMake would name the header's text, too, by a path that ccache does not take for one.
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
  set(CMAKE_CXX_COMPILE_OPTIONS_USE_PCH -include-pch <PCH_FILE>)
endif()

# qvl_precompile(TARGET PRIVATE HEADERS... | REUSE_FROM TARGET): headers that most sources of the
# target include, compiled once.
function(qvl_precompile target)
  target_precompile_headers(${target} ${ARGN})
  target_compile_options(${target} PRIVATE -Winvalid-pch)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
endfunction()

# qvl_library(NAME SOURCES... [LINKS targets...] [HEADERS headers...] [POSITION_INDEPENDENT]): one room
# of the house as a static library.
# A source named *_platform.cpp stands for the file of the system that is built for.
# HEADERS are precompiled; without them the room shares those of the lowest one, unless its code is
# of another kind. Not with Clang: one build proves each source to include what it uses.
function(qvl_library name)
  cmake_parse_arguments(ARG "POSITION_INDEPENDENT" "" "SOURCES;LINKS;HEADERS" ${ARGN})
  if(WIN32)
    list(TRANSFORM ARG_SOURCES REPLACE "_platform\\.cpp$" "_windows.cpp")
  else()
    list(TRANSFORM ARG_SOURCES REPLACE "_platform\\.cpp$" "_posix.cpp")
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE qvl_options)
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ${ARG_POSITION_INDEPENDENT})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    if(ARG_HEADERS)
      qvl_precompile(${name} PRIVATE ${ARG_HEADERS})
    elseif(NOT ARG_POSITION_INDEPENDENT)
      qvl_precompile(${name} REUSE_FROM qvl_texts)
    endif()
  endif()
  if(QVL_BUILD_FUZZERS)
    # It tells the fuzzers which paths their input takes.
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()

# qvl_program(NAME SOURCES... [LINKS targets...]): a program that users or tests start, in bin/.
function(qvl_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} qvl_options)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${QVL_PROGRAM_DIR}")
endfunction()
