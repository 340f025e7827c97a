# vn_host_version(<target> <description>)
#
# Gives a host's executable its version resource: hosts/VnHostVersion.rc.in
# filled with the host's name and description, numbered from
# resources/VnVersion.h like the component itself.  Nothing natively.
function(vn_host_version target description)
  if(NOT WIN32)
    return()
  endif()
  set(VN_HOST_NAME ${target})
  set(VN_HOST_DESCRIPTION ${description})
  set(rc ${CMAKE_BINARY_DIR}/generated/hosts/${target}/${target}-version.rc)
  configure_file(${CMAKE_SOURCE_DIR}/hosts/VnHostVersion.rc.in ${rc} @ONLY)
  # windres does not scan includes: a new version must still rebuild it.
  set_source_files_properties(${rc} PROPERTIES OBJECT_DEPENDS ${CMAKE_BINARY_DIR}/generated/resources/VnVersion.h)
  target_sources(${target} PRIVATE ${rc})
endfunction()
