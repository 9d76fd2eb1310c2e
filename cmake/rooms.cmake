# Every folder under src/ is one library, a "room"; what it may include is what it is linked against.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

add_library(house_rules INTERFACE)
target_compile_options(house_rules INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)
target_include_directories(house_rules INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(TENANT_SANITIZE)
  target_compile_options(house_rules INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
  target_link_options(house_rules INTERFACE -fsanitize=address,undefined)
endif()

# room(<name> [FOLDER <dir>] USES <libraries...>): a static library of all sources in the folder.
function(room name)
  cmake_parse_arguments(ROOM "" "FOLDER" "USES" ${ARGN})
  if(NOT ROOM_FOLDER)
    set(ROOM_FOLDER ${name})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ROOM_FOLDER}/*.cpp)
  add_library(room_${name} STATIC ${sources})
  target_link_libraries(room_${name} PUBLIC house_rules ${ROOM_USES})
endfunction()
