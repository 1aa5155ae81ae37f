# Read by CTest: the tests of one program, from the list of its cases that its build has left.
include_guard()

set(vorn_cases_script "${CMAKE_CURRENT_LIST_DIR}/../tests/common/cases.sh")

# vorn_cases(NAME PROGRAM LIST ENVIRONMENT LABELS TIMEOUT SERIAL ALONE): see vorn_add_test.
function(vorn_cases name program list environment labels timeout serial alone)
  if(NOT EXISTS "${list}")
    # Fails and says so: the program is not built.
    add_test("${name}/NOT_BUILT" "${program}")
    return()
  endif()
  set(log "${list}.${name}")
  file(STRINGS "${list}" cases)
  list(LENGTH cases count)
  set(names)
  foreach(case IN LISTS cases)
    list(APPEND names "${name}/${case}")
    if(alone)
      add_test("${name}/${case}" "${program}" "--gtest_filter=${case}")
    else()
      add_test("${name}/${case}" sh "${vorn_cases_script}" "${log}" "${program}" "${case}")
    endif()
  endforeach()
  set_tests_properties(${names} PROPERTIES ENVIRONMENT "${environment}" LABELS "${labels}"
    TIMEOUT ${timeout} RUN_SERIAL ${serial} SKIP_REGULAR_EXPRESSION "\\[  SKIPPED \\]")
  if(alone)
    return()
  endif()
  # The programs with most cases start first.
  math(EXPR whole_timeout "10 * ${timeout}")
  add_test("${name}" sh "${vorn_cases_script}" "${log}" "${program}")
  set_tests_properties("${name}" PROPERTIES ENVIRONMENT "${environment}" LABELS "${labels};program"
    TIMEOUT ${whole_timeout} RUN_SERIAL ${serial} COST ${count})
  set_tests_properties(${names} PROPERTIES DEPENDS "${name}")
endfunction()
