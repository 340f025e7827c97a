# Gathers the subsystem object libraries into the component.
get_property(_vn_parts GLOBAL PROPERTY VN_COMPONENT_PARTS)
set(_vn_objects "")
foreach(part ${_vn_parts})
  list(APPEND _vn_objects $<TARGET_OBJECTS:${part}>)
endforeach()

if(WIN32)
  # The resource scripts of src/resources (string table, dialog templates).
  get_property(_vn_rc GLOBAL PROPERTY VN_DLL_RESOURCES)
  # Every symbol is exported so hosts and tests link the real DLL; the import
  # library sits beside it in lib/.
  add_library(vnreconcile SHARED ${_vn_objects} ${_vn_rc} ${VN_DLL_EXTRA_SOURCES})
  set_target_properties(vnreconcile PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
  # Symbols of the static runtimes (libgcc, libstdc++, winpthread) stay
  # private: each module carries its own copy, and an exported _Unwind_Resume
  # would clash with the one every executable links.
  target_link_options(vnreconcile PRIVATE -Wl,--export-all-symbols -Wl,--exclude-libs,ALL)
  target_link_libraries(vnreconcile PUBLIC comctl32 comdlg32 gdi32 user32 advapi32 shell32 ole32 oleaut32 uuid shlwapi version winspool)
else()
  add_library(vnreconcile STATIC ${_vn_objects})
endif()
target_include_directories(vnreconcile PUBLIC ${CMAKE_SOURCE_DIR}/src ${CMAKE_BINARY_DIR}/generated)
