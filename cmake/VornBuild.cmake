# What every target of the project shares: language level, warnings, visibility, sanitizers.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

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
if(VORN_SANITIZE)
  target_compile_options(vorn_build INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  target_link_options(vorn_build INTERFACE -fsanitize=address,undefined)
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

# vorn_add_test(NAME SOURCES... LIBS... [LABELS ...] [ENV ...] [TIMEOUT s] [SERIAL])
# One test program; each of its tests is a test of its own in CTest. GUI programs run offscreen.
function(vorn_add_test name)
  cmake_parse_arguments(T "SERIAL" "TIMEOUT" "SOURCES;LIBS;LABELS;ENV" ${ARGN})
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 120)
  endif()
  add_executable(${name} ${T_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE vorn_build ${T_LIBS} GTest::gtest)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  set(env "QT_QPA_PLATFORM=offscreen" "LC_ALL=C.UTF-8" "QT_LOGGING_RULES="
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0"
    "UBSAN_OPTIONS=print_stacktrace=1" ${T_ENV})
  set(properties TIMEOUT ${T_TIMEOUT})
  if(T_SERIAL)
    list(APPEND properties RUN_SERIAL TRUE)
  endif()
  gtest_discover_tests(${name} NO_PRETTY_VALUES TEST_PREFIX "${name}/" TEST_LIST ${name}_list DISCOVERY_TIMEOUT 60
    PROPERTIES ${properties})
  # Properties that are lists do not survive the discovery step; CTest sets them when it has read the
  # tests.
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${name}_properties.cmake")
  file(WRITE "${script}" "if(${name}_list)\n"
    "  set_tests_properties(\${${name}_list} PROPERTIES\n"
    "    ENVIRONMENT [==[${env}]==] LABELS [==[${T_LABELS}]==])\nendif()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${script}")
endfunction()
