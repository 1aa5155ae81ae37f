# What the library is put together from; the same files for the host and for the phone.

# vorn_library_sources(SUPPORT LIBRARY): sets two variables, to the helpers and to everything else.
function(vorn_library_sources support library)
  set(root "${PROJECT_SOURCE_DIR}")
  file(GLOB helpers CONFIGURE_DEPENDS "${root}/support/*.cpp" "${root}/support/*.h")
  file(GLOB_RECURSE others CONFIGURE_DEPENDS
    "${root}/session/*.cpp" "${root}/session/*.h"
    "${root}/profiles/*.cpp" "${root}/profiles/*.h"
    "${root}/widgets/*.cpp" "${root}/widgets/*.h"
    "${root}/wizard/*.cpp" "${root}/wizard/*.h"
    "${root}/include/*.h")
  set(${support} "${helpers}" PARENT_SCOPE)
  set(${library} "${others}" PARENT_SCOPE)
endfunction()
