# How a test is added.
#
# A test of C++: put its TEST or TEST_F into a source of the folder of tests/ that it belongs to; a new
# source is named in a vorn_add_test of that folder's CMakeLists.txt. What several programs share is
# compiled once, as a vorn_add_fixture that each of them names among its LIBS. A test of any other kind is
# an add_test. Each test gets the name of its folder as a label: ctest --preset debug -L wizard.

# vorn_test: how test code is compiled. It runs for a moment and is compiled often: it is not optimised,
# UndefinedBehaviorSanitizer looks at what is tested only, and AddressSanitizer checks by calls instead of by
# code at each place.
add_library(vorn_test INTERFACE)
target_link_libraries(vorn_test INTERFACE vorn_build GTest::gtest)
target_include_directories(vorn_test INTERFACE "${PROJECT_SOURCE_DIR}/tests")
target_compile_options(vorn_test INTERFACE -O0 -fPIC
  $<$<BOOL:${VORN_SANITIZE}>:-fno-sanitize=undefined>
  $<$<AND:$<BOOL:${VORN_SANITIZE}>,$<CXX_COMPILER_ID:GNU>>:--param=asan-instrumentation-with-call-threshold=0>
  # Qt's tests are told their folders, which differ where precompiled headers must not.
  -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
find_program(VORN_MOLD mold)
mark_as_advanced(VORN_MOLD)
if(VORN_MOLD)
  target_link_options(vorn_test INTERFACE -fuse-ld=mold)
endif()

# What a test finds in its environment. GUI programs run offscreen, and nothing moves there by itself.
set(vorn_test_environment "QT_QPA_PLATFORM=offscreen" "LC_ALL=C.UTF-8" "QT_LOGGING_RULES=" "VORN_MOTION=reduced"
  "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0"
  "UBSAN_OPTIONS=print_stacktrace=1")

# _vorn_test_code(TARGET SOURCES LIBS): what programs and fixtures have in common. moc looks only at targets
# that have a class for it when CMake runs.
function(_vorn_test_code target sources libs)
  target_link_libraries(${target} PRIVATE vorn_test ${libs})
  foreach(source IN LISTS sources)
    file(STRINGS "${source}" classes LIMIT_COUNT 1 REGEX "Q_OBJECT")
    if(classes)
      set_target_properties(${target} PROPERTIES AUTOMOC ON)
    endif()
  endforeach()
  if(NOT VORN_PRECOMPILED OR target MATCHES "^vorn_precompiled")
    return()
  elseif("vorn_gui_test" IN_LIST libs)
    target_precompile_headers(${target} REUSE_FROM vorn_precompiled_gui)
  else()
    target_precompile_headers(${target} REUSE_FROM vorn_precompiled)
  endif()
endfunction()

# vorn_add_fixture(NAME SOURCES... [LIBS...])
# What several test programs share, compiled once. LIBS are what its headers need; a program names the
# libraries that it links itself.
function(vorn_add_fixture name)
  cmake_parse_arguments(F "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} OBJECT ${F_SOURCES})
  _vorn_test_code(${name} "${F_SOURCES}" "${F_LIBS}")
endfunction()

# vorn_add_test(NAME SOURCES... LIBS... [LABELS ...] [ENV ...] [VARIANTS ...] [TIMEOUT s] [SERIAL] [ALONE])
# One test program. In CTest the test NAME runs it once, in one process, and each of its cases is the test
# NAME/Suite.Case, which passes or fails as the case did in that process. A case that did not come to its end
# there, because another one crashed or hung, or because only the case was asked for, runs by itself.
#   VARIANTS  the program under several environments, which is built once: each is a text "SUFFIX VAR=value
#             ...", and its tests are NAME_SUFFIX and NAME_SUFFIX/Suite.Case
#   ALONE     each case always runs in a process of its own; for programs whose cases change what the
#             process cannot change back
#   TIMEOUT   for one case; the whole program has ten times that
#   SERIAL    nothing else runs at the same time
function(vorn_add_test name)
  cmake_parse_arguments(T "SERIAL;ALONE" "TIMEOUT" "SOURCES;LIBS;LABELS;ENV;VARIANTS" ${ARGN})
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 120)
  endif()
  add_executable(${name} ${T_SOURCES})
  _vorn_test_code(${name} "${T_SOURCES}" "${T_LIBS}")
  set(cases "${CMAKE_CURRENT_BINARY_DIR}/${name}.cases")
  add_custom_command(TARGET ${name} POST_BUILD VERBATIM BYPRODUCTS "${cases}"
    COMMAND sh "${PROJECT_SOURCE_DIR}/tests/common/cases.sh" --list "${cases}" "$<TARGET_FILE:${name}>")
  if(NOT T_VARIANTS)
    set(T_VARIANTS "-")
  endif()
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${name}_cases.cmake")
  set(calls "include([==[${PROJECT_SOURCE_DIR}/cmake/VornCases.cmake]==])\n")
  foreach(variant IN LISTS T_VARIANTS)
    string(REPLACE " " ";" environment "${variant}")
    list(POP_FRONT environment suffix)
    string(REGEX REPLACE "_-$" "" test "${name}_${suffix}")
    string(APPEND calls "vorn_cases([==[${test}]==] [==[$<TARGET_FILE:${name}>]==] [==[${cases}]==]\n"
      "  [==[${vorn_test_environment};${T_ENV};${environment}]==] [==[${T_LABELS}]==]\n"
      "  ${T_TIMEOUT} ${T_SERIAL} ${T_ALONE})\n")
  endforeach()
  file(GENERATE OUTPUT "${script}" CONTENT "${calls}")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${script}")
endfunction()
