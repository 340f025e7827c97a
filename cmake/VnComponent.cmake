# Wires the layers (VnHelpers.cmake) and gathers the subsystem object
# libraries into the component.  Linking an object library directly puts
# its objects into the component; to the component's users it passes on
# only its include directories.
vn_wire_layers()
# Headers the build makes (resources/VnVersion.h) belong to the resources layer.
target_include_directories(vn_resources INTERFACE ${CMAKE_BINARY_DIR}/generated)
get_property(_vn_parts GLOBAL PROPERTY VN_COMPONENT_PARTS)

if(WIN32)
  # The resource scripts of src/resources (string table, dialog templates).
  get_property(_vn_rc GLOBAL PROPERTY VN_DLL_RESOURCES)
  # Every symbol is exported so hosts and tests link the real DLL; the import
  # library sits beside it in lib/.
  add_library(vnreconcile SHARED ${_vn_rc} ${VN_DLL_EXTRA_SOURCES})
  set_target_properties(vnreconcile PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
  # Symbols of the static runtimes (libgcc, libstdc++, winpthread) stay
  # private: each module carries its own copy, and an exported _Unwind_Resume
  # would clash with the one every executable links.
  target_link_options(vnreconcile PRIVATE -Wl,--export-all-symbols -Wl,--exclude-libs,ALL)
  target_link_libraries(vnreconcile PUBLIC comctl32 comdlg32 gdi32 user32 advapi32 shell32 ole32 oleaut32 uuid shlwapi uxtheme version winspool)
  # The resource compiler finds the scripts' own includes beside them.
  target_include_directories(vnreconcile PRIVATE ${CMAKE_SOURCE_DIR}/src/resources)
else()
  add_library(vnreconcile STATIC ${VN_DLL_EXTRA_SOURCES})
endif()
foreach(_vn_layer ${VN_LAYERS})
  target_link_libraries(vnreconcile PUBLIC vn_${_vn_layer})
endforeach()
