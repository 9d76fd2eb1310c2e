# Every folder under src/ is one library, a "room"; what it may include is what it is linked against.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

add_library(house_rules INTERFACE)
target_compile_options(house_rules INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # "text" + std::string() is taken for an overlapping copy there (GCC bug 105651).
  target_compile_options(house_rules INTERFACE -Wno-restrict)
endif()
target_include_directories(house_rules INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(TENANT_SANITIZE)
  target_compile_options(house_rules INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
  target_link_options(house_rules INTERFACE -fsanitize=address,undefined)
  if(TENANT_FUZZ)
    target_compile_options(house_rules INTERFACE -fsanitize=fuzzer-no-link)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # The instrumented code of a variant looks uninitialised to the compiler (see its manual under -fsanitize).
    target_compile_options(house_rules INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

# room(<name> [FOLDERS <dirs...>] USES <libraries...>): a static library of all sources in the folders, by default in
# the folder of the room's own name.
function(room name)
  cmake_parse_arguments(ROOM "" "" "FOLDERS;USES" ${ARGN})
  if(NOT ROOM_FOLDERS)
    set(ROOM_FOLDERS ${name})
  endif()
  list(TRANSFORM ROOM_FOLDERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  list(TRANSFORM ROOM_FOLDERS APPEND /*.cpp)
  file(GLOB sources CONFIGURE_DEPENDS ${ROOM_FOLDERS})
  add_library(room_${name} STATIC ${sources})
  target_link_libraries(room_${name} PUBLIC house_rules ${ROOM_USES})
endfunction()
