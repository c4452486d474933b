# How every target of this project is built.

add_library(qvl_options INTERFACE)
target_include_directories(qvl_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(qvl_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror)

# qvl_precompile(TARGET PRIVATE HEADERS... | REUSE_FROM TARGET): headers that most sources of the
# target include, compiled once.
# Not with Clang, whose result knows its folder, so that no other clone could take it from ccache;
# and so that one build proves each source to include what it uses.
function(qvl_precompile target)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_precompile_headers(${target} ${ARGN})
    target_compile_options(${target} PRIVATE -Winvalid-pch -fpch-preprocess)
  endif()
endfunction()

# qvl_library(NAME SOURCES... [LINKS targets...]): one room of the house as a static library.
# A source named *_platform.cpp stands for the file of the system that is built for.
function(qvl_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  if(WIN32)
    list(TRANSFORM ARG_SOURCES REPLACE "_platform\\.cpp$" "_windows.cpp")
  else()
    list(TRANSFORM ARG_SOURCES REPLACE "_platform\\.cpp$" "_posix.cpp")
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE qvl_options)
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
endfunction()

# qvl_program(NAME SOURCES... [LINKS targets...]): a program that users or tests start, in bin/.
function(qvl_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} qvl_options)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${QVL_PROGRAM_DIR}")
endfunction()
