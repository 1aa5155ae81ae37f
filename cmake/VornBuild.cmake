# What every target of the project shares: language level, warnings, visibility, sanitizers. How a test is
# added stands in VornTests.cmake.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

# Whether headers that most sources of a target include are read once for all of them. A compiler cache cannot
# tell what such a compilation depends on, so it is left to do its work.
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(_precompiled OFF)
else()
  set(_precompiled ON)
endif()
option(VORN_PRECOMPILED "Precompile the headers of Qt and GoogleTest" ${_precompiled})

# vorn_precompile(TARGET HEADERS...), vorn_precompile(TARGET REUSE_FROM OTHER): a source includes all the same
# what it needs itself.
function(vorn_precompile target)
  if(NOT VORN_PRECOMPILED)
    return()
  elseif(ARGV1 STREQUAL "REUSE_FROM")
    target_precompile_headers(${target} ${ARGN})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# vorn_find_beside(TARGET FOLDER LIBRARIES...): has a target find the libraries in the folder, told from
# where the target itself lies; the same in the build, where links stand for them there, as installed. A
# path that is changed by the installation would be padded with empty elements, each of which stands for
# whatever folder a program is started in.
function(vorn_find_beside target folder)
  string(REGEX REPLACE "/\\.$" "" path "$ORIGIN/${folder}")
  set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "${path}")
  foreach(library IN LISTS ARGN)
    set(link "$<TARGET_FILE_DIR:${target}>/${folder}")
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${link}"
      COMMAND "${CMAKE_COMMAND}" -E create_symlink
        "$<TARGET_FILE:${library}>" "${link}/$<TARGET_SONAME_FILE_NAME:${library}>")
  endforeach()
endfunction()

add_library(vorn_build INTERFACE)
target_compile_options(vorn_build INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wformat=2 -Wundef -Wconversion $<$<BOOL:${VORN_WERROR}>:-Werror>)
# Not optimised, and with as much about the source as a readable stack needs: the sanitizers' checks take the
# compiler longer to optimise than they take to run.
if(VORN_SANITIZE)
  target_compile_options(vorn_build INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
    $<IF:$<BOOL:${VORN_FUZZ}>,-O1,-O0> -g1)
  target_link_options(vorn_build INTERFACE -fsanitize=address,undefined)
endif()
if(VORN_RACES)
  target_compile_options(vorn_build INTERFACE -fsanitize=thread -fno-omit-frame-pointer -O1 -g1)
  target_link_options(vorn_build INTERFACE -fsanitize=thread)
endif()
# The parts of clang's sanitizers that a shared library calls are in the program.
if(VORN_FUZZ)
  target_compile_options(vorn_build INTERFACE -fsanitize=fuzzer-no-link)
else()
  target_link_options(vorn_build INTERFACE LINKER:--no-undefined)
endif()
target_link_options(vorn_build INTERFACE LINKER:--as-needed LINKER:-z,relro,-z,now)

# vorn_hardened: the same for what is installed. The phone's C library may be older than what the stack
# protector and the fortified calls ask of it; the debugger and the sanitizers do without.
add_library(vorn_hardened INTERFACE)
target_link_libraries(vorn_hardened INTERFACE vorn_build)
if(NOT VORN_SANITIZE)
  target_compile_options(vorn_hardened INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
endif()

# vorn_hide_runtime(TARGET): keeps the C++ run-time library out of what a shared library exports.
function(vorn_hide_runtime target)
  set(map "${PROJECT_SOURCE_DIR}/cmake/library/exports.map")
  target_link_options(${target} PRIVATE "LINKER:--version-script,${map}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
endfunction()

# vorn_platform_headers: the declarations that the library needs from the phone.
add_library(vorn_platform_headers INTERFACE)
target_include_directories(vorn_platform_headers INTERFACE
  "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/platform/include>"
  "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vornqtnapi/platform>")
