# Stubs for remote calls through rpcrt4, made at build time from an interface definition.
# Microsoft's compiler makes them for NDR 2.0 and NDR64; widl, which comes with MinGW, for NDR 2.0.
enable_language(C)

# The stubs of the two sides get prefixes, so that one program can hold both.
set(QVL_RPC_CLIENT_PREFIX Call_)
set(QVL_RPC_SERVER_PREFIX Serve_)

if(MSVC)
  find_program(QVL_IDL_COMPILER midl REQUIRED)
else()
  find_program(QVL_IDL_COMPILER NAMES x86_64-w64-mingw32-widl widl REQUIRED)
endif()

# qvl_rpc_stub(TARGET client|server IDL USERS...): adds one side's stub to a target. The sources that
# call it or are called by it include <NAME.h>, with NAME the interface definition's file name.
function(qvl_rpc_stub target side idl)
  get_filename_component(idl "${idl}" ABSOLUTE)
  get_filename_component(name "${idl}" NAME_WE)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/rpc_stubs")
  string(SUBSTRING ${side} 0 1 letter)
  set(stub "${folder}/${name}_${letter}.c")
  set(header "${folder}/${name}.h")
  file(MAKE_DIRECTORY "${folder}")
  if(MSVC)
    # robust: the stubs check every length that comes in. ascii7: char stays char.
    set(command /nologo /char ascii7 /robust /protocol all /target NT60 /env x64
      /prefix client ${QVL_RPC_CLIENT_PREFIX} server ${QVL_RPC_SERVER_PREFIX}
      /h ${name}.h /cstub ${name}_c.c /sstub ${name}_s.c "${idl}")
  else()
    set(command -${letter} -h --win64 -Oif
      --prefix-client=${QVL_RPC_CLIENT_PREFIX} --prefix-server=${QVL_RPC_SERVER_PREFIX} "${idl}")
  endif()
  add_custom_command(OUTPUT "${stub}" "${header}"
    COMMAND "${QVL_IDL_COMPILER}" ${command}
    WORKING_DIRECTORY "${folder}" DEPENDS "${idl}" VERBATIM)
  target_sources(${target} PRIVATE "${stub}" "${header}")
  target_include_directories(${target} SYSTEM PRIVATE "${folder}")
  target_link_libraries(${target} PUBLIC rpcrt4)

  # Not our code, so not our warnings. MinGW's headers lack the type that Microsoft's define so.
  set_source_files_properties("${stub}" PROPERTIES
    COMPILE_OPTIONS -w SKIP_PRECOMPILE_HEADERS ON)
  set_source_files_properties("${stub}" ${ARGN} PROPERTIES COMPILE_DEFINITIONS small=char)
endfunction()
