# The component's subsystems and the layers they stand in.
#
# Each subsystem src/<sub> is a target vn_<sub> with its own public include
# directory and the dependencies its layer names, so that an include that
# runs upward (engine including intake, window including options) finds no
# file and does not compile.  The include directory is staged in the build
# tree: build/include/<sub>/<sub> links to src/<sub>, so "<sub>/Name.h" is
# what a target sees of the subsystem, whatever files it grows.
#
# One subsystem is split: the option values (VnDisplayOptions and the
# application's flags) stand below the window, the rest of options/ above
# it.  Its files are named in VN_LOWER_FILES_options and staged one by one
# under the same "options/" prefix for the lower target vn_options_values.

# What each layer may include besides itself, bottom up.
set(VN_LAYERS afx resources foundation engine intake compare options_values toolkit window options)
set(VN_USES_afx "")
set(VN_USES_resources "")
set(VN_USES_foundation afx resources)
set(VN_USES_engine afx)
set(VN_USES_intake foundation)
set(VN_USES_compare intake engine)
set(VN_USES_options_values afx)
set(VN_USES_toolkit foundation engine)
set(VN_USES_window toolkit compare options_values)
set(VN_USES_options window)

# File name stems (before the first dot, less a Win32 or Posix suffix) of
# a subsystem that belong to its lower part <sub>_values.
set(VN_LOWER_FILES_options VnDisplayOptions VnAppFlags)

# vn_add_component(<name> SOURCES ... [WIN32_SOURCES ...] [NATIVE_SOURCES ...])
#
# Adds sources of the component as one object library.  Every such library
# ends up in the one `vnreconcile` target (VnComponent.cmake): a static
# library in the native build, vnreconcile.dll in the Windows build.
function(vn_add_component name)
  cmake_parse_arguments(ARG "" "" "SOURCES;WIN32_SOURCES;NATIVE_SOURCES" ${ARGN})
  set(srcs ${ARG_SOURCES})
  if(WIN32)
    list(APPEND srcs ${ARG_WIN32_SOURCES})
  else()
    list(APPEND srcs ${ARG_NATIVE_SOURCES})
  endif()
  if(srcs)
    add_library(${name} OBJECT ${srcs})
    set_property(GLOBAL APPEND PROPERTY VN_COMPONENT_PARTS ${name})
  endif()
endfunction()

# The stem that decides which part of a split subsystem a file joins.
function(_vn_stem file out)
  get_filename_component(stem ${file} NAME)
  string(REGEX REPLACE "\\..*$" "" stem ${stem})
  string(REGEX REPLACE "(Win32|Posix)$" "" stem ${stem})
  set(${out} ${stem} PARENT_SCOPE)
endfunction()

# vn_add_component_dir(<name>)
#
# The usual form: every .cpp below the calling directory.  A file ending in
# Win32.cpp builds for Windows only, one ending in Posix.cpp natively only, so
# subsystems grow without anyone editing a source list.  Everything in a
# win32/ directory is Windows only as well.  The directory's name is the
# subsystem's; files its VN_LOWER_FILES_<sub> names go to <name>_values.
function(vn_add_component_dir name)
  get_filename_component(sub ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  file(GLOB_RECURSE all CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  foreach(part upper lower)
    set(${part}_common "")
    set(${part}_win "")
    set(${part}_nat "")
  endforeach()
  foreach(f ${all})
    _vn_stem(${f} stem)
    set(part upper)
    if(stem IN_LIST VN_LOWER_FILES_${sub})
      set(part lower)
    endif()
    if(f MATCHES "Win32\\.cpp$" OR f MATCHES "/win32/")
      list(APPEND ${part}_win ${f})
    elseif(f MATCHES "Posix\\.cpp$")
      list(APPEND ${part}_nat ${f})
    else()
      list(APPEND ${part}_common ${f})
    endif()
  endforeach()
  vn_add_component(${name} SOURCES ${upper_common} WIN32_SOURCES ${upper_win} NATIVE_SOURCES ${upper_nat})
  vn_add_component(${name}_values SOURCES ${lower_common} WIN32_SOURCES ${lower_win} NATIVE_SOURCES ${lower_nat})
endfunction()

# The staged include directory of a layer: a link to the whole subsystem,
# or for a lower part, links to its own headers only.
function(_vn_stage_layer layer out)
  set(dir ${CMAKE_BINARY_DIR}/include/${layer})
  string(REGEX REPLACE "_values$" "" sub ${layer})
  if(layer STREQUAL sub)
    file(MAKE_DIRECTORY ${dir})
    set(link ${dir}/${sub})
    if(IS_SYMLINK ${link})
      file(READ_SYMLINK ${link} target)
      if(NOT target STREQUAL ${CMAKE_SOURCE_DIR}/src/${sub})
        file(REMOVE ${link})  # the link itself; what it names stays
      endif()
    endif()
    if(NOT IS_SYMLINK ${link})
      file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${sub} ${link} SYMBOLIC)
    endif()
  else()
    file(MAKE_DIRECTORY ${dir}/${sub})
    file(GLOB old ${dir}/${sub}/*)
    if(old)
      file(REMOVE ${old})  # links to single files
    endif()
    file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${sub}/*.h)
    foreach(h ${headers})
      _vn_stem(${h} stem)
      if(stem IN_LIST VN_LOWER_FILES_${sub})
        get_filename_component(leaf ${h} NAME)
        file(CREATE_LINK ${h} ${dir}/${sub}/${leaf} SYMBOLIC)
      endif()
    endforeach()
  endif()
  set(${out} ${dir} PARENT_SCOPE)
endfunction()

# Gives every layer its target (an interface library where it has no
# sources in this build), its staged include directory and its uses.
function(vn_wire_layers)
  foreach(layer ${VN_LAYERS})
    set(target vn_${layer})
    set(scope PUBLIC)
    if(NOT TARGET ${target})
      add_library(${target} INTERFACE)
      set(scope INTERFACE)
    endif()
    _vn_stage_layer(${layer} dir)
    target_include_directories(${target} ${scope} ${dir})
    foreach(use ${VN_USES_${layer}})
      target_link_libraries(${target} ${scope} vn_${use})
    endforeach()
  endforeach()
endfunction()
