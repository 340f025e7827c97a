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

# vn_add_component_dir(<name>)
#
# The usual form: every .cpp below the calling directory.  A file ending in
# Win32.cpp builds for Windows only, one ending in Posix.cpp natively only, so
# subsystems grow without anyone editing a source list.  Everything in a
# win32/ directory is Windows only as well.
function(vn_add_component_dir name)
  file(GLOB_RECURSE all CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  set(common "")
  set(win "")
  set(nat "")
  foreach(f ${all})
    if(f MATCHES "Win32\\.cpp$" OR f MATCHES "/win32/")
      list(APPEND win ${f})
    elseif(f MATCHES "Posix\\.cpp$")
      list(APPEND nat ${f})
    else()
      list(APPEND common ${f})
    endif()
  endforeach()
  if(WIN32)
    set(mine ${common} ${win})
  else()
    set(mine ${common} ${nat})
  endif()
  if(mine)
    vn_add_component(${name} SOURCES ${common} WIN32_SOURCES ${win} NATIVE_SOURCES ${nat})
  endif()
endfunction()
