# vn_add_component(<name> SOURCES ... [WIN32_SOURCES ...] [NATIVE_SOURCES ...])
#
# Adds one subsystem of the component as an object library.  Every such
# library ends up in the one `vnreconcile` target (VnComponent.cmake): a static
# library in the native build, vnreconcile.dll in the Windows build.
function(vn_add_component name)
  cmake_parse_arguments(ARG "" "" "SOURCES;WIN32_SOURCES;NATIVE_SOURCES" ${ARGN})
  set(srcs ${ARG_SOURCES})
  if(WIN32)
    list(APPEND srcs ${ARG_WIN32_SOURCES})
  else()
    list(APPEND srcs ${ARG_NATIVE_SOURCES})
  endif()
  add_library(${name} OBJECT ${srcs})
  target_compile_definitions(${name} PRIVATE VN_BUILDING_COMPONENT)
  set_property(GLOBAL APPEND PROPERTY VN_COMPONENT_PARTS ${name})
endfunction()
