# What `cmake --install` and CPack ship, for hosts built outside this tree.
#
#   bin/                     vnreconcile.dll and the hosts (natively vndiff)
#   lib/                     libvnreconcile.dll.a, the import library
#                            (natively the static core, libvnreconcile.a)
#   lib/cmake/VnReconcile/   the package: VnReconcile::vnreconcile
#   include/vnreconcile/     one header per family a host includes
#                            (<vnreconcile/Window.h> ...), and below it every
#                            subsystem's headers as "<sub>/Name.h", the form
#                            the sources use, so they compile unchanged
#   share/doc/vnreconcile/   README, docs/ and the sample host
#
# The native package holds the portable families only.  The package config
# is written here, not exported: the component is assembled from object
# libraries with staged include directories (VnComponent.cmake) that mean
# nothing outside the build tree, so the config states what a host gets -
# one imported target with the installed include directories, the build's
# definitions and the system libraries - taken from the build's own
# settings.
include(CMakePackageConfigHelpers)

set(VN_INSTALL_BINDIR bin)
set(VN_INSTALL_LIBDIR lib)
set(VN_INSTALL_INCLUDEDIR include)
set(VN_INSTALL_CMAKEDIR ${VN_INSTALL_LIBDIR}/cmake/VnReconcile)
set(VN_INSTALL_DOCDIR share/doc/vnreconcile)

# A cross build's default prefix is a Windows path, meaningless here.
if(WIN32 AND CMAKE_CROSSCOMPILING AND CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
  set(CMAKE_INSTALL_PREFIX ${CMAKE_BINARY_DIR}/install CACHE PATH "Install path prefix" FORCE)
endif()

#===-- Binaries ------------------------------------------------------------===#

install(TARGETS vnreconcile
        RUNTIME DESTINATION ${VN_INSTALL_BINDIR}
        LIBRARY DESTINATION ${VN_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${VN_INSTALL_LIBDIR})
foreach(host vndiff vncompare vnmerge)
  if(TARGET ${host})
    install(TARGETS ${host} RUNTIME DESTINATION ${VN_INSTALL_BINDIR})
  endif()
endforeach()

#===-- Headers -------------------------------------------------------------===#

# Every header of a shipped subsystem, since public headers include internal
# ones; left out: the seams' private parts and, natively, the Windows half.
set(_vn_header_subs resources afx foundation engine intake compare options)
set(_vn_header_skip PATTERN "*Internal.h" EXCLUDE)
set(_vn_families Foundation Engine Intake Compare Options)
if(WIN32)
  list(APPEND _vn_header_subs toolkit window)
  list(APPEND _vn_families Toolkit Window)
else()
  list(APPEND _vn_header_skip PATTERN "win32" EXCLUDE
       PATTERN "VnOptionPages.h" EXCLUDE PATTERN "VnReconcileApp.h" EXCLUDE)
endif()
foreach(sub ${_vn_header_subs})
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/${sub}/
          DESTINATION ${VN_INSTALL_INCLUDEDIR}/vnreconcile/${sub}
          FILES_MATCHING PATTERN "*.h" ${_vn_header_skip})
endforeach()
install(FILES ${CMAKE_BINARY_DIR}/generated/resources/VnVersion.h
        DESTINATION ${VN_INSTALL_INCLUDEDIR}/vnreconcile/resources)
list(TRANSFORM _vn_families PREPEND ${CMAKE_SOURCE_DIR}/include/vnreconcile/)
list(TRANSFORM _vn_families APPEND .h)
install(FILES ${_vn_families} DESTINATION ${VN_INSTALL_INCLUDEDIR}/vnreconcile)

#===-- Documentation -------------------------------------------------------===#

install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${VN_INSTALL_DOCDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION ${VN_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.md")
if(WIN32)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples DESTINATION ${VN_INSTALL_DOCDIR})
endif()

#===-- The package config --------------------------------------------------===#

# What the build compiles with and links: the top directory's definitions
# and the component's system libraries (its other links are its subsystems).
if(WIN32)
  set(VN_PACKAGE_WINDOWS TRUE)
  set(VN_PACKAGE_TYPE SHARED)
  set(VN_PACKAGE_LOCATION ${VN_INSTALL_BINDIR}/vnreconcile${CMAKE_SHARED_LIBRARY_SUFFIX})
  set(VN_PACKAGE_IMPLIB ${VN_INSTALL_LIBDIR}/libvnreconcile${CMAKE_IMPORT_LIBRARY_SUFFIX})
  get_directory_property(VN_PACKAGE_DEFINITIONS DIRECTORY ${CMAKE_SOURCE_DIR} COMPILE_DEFINITIONS)
else()
  set(VN_PACKAGE_WINDOWS FALSE)
  set(VN_PACKAGE_TYPE STATIC)
  set(VN_PACKAGE_LOCATION ${VN_INSTALL_LIBDIR}/libvnreconcile${CMAKE_STATIC_LIBRARY_SUFFIX})
  set(VN_PACKAGE_IMPLIB "")
  set(VN_PACKAGE_DEFINITIONS "")
endif()
get_target_property(VN_PACKAGE_LINK_LIBRARIES vnreconcile INTERFACE_LINK_LIBRARIES)
if(NOT VN_PACKAGE_LINK_LIBRARIES)
  set(VN_PACKAGE_LINK_LIBRARIES "")
endif()
list(FILTER VN_PACKAGE_LINK_LIBRARIES EXCLUDE REGEX "^vn_")

set(_vn_package_dir ${CMAKE_BINARY_DIR}/package)
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/VnReconcileConfig.cmake.in
                              ${_vn_package_dir}/VnReconcileConfig.cmake
                              INSTALL_DESTINATION ${VN_INSTALL_CMAKEDIR})
# 0.x: a new minor version may break hosts.
write_basic_package_version_file(${_vn_package_dir}/VnReconcileConfigVersion.cmake
                                 VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES ${_vn_package_dir}/VnReconcileConfig.cmake ${_vn_package_dir}/VnReconcileConfigVersion.cmake
        DESTINATION ${VN_INSTALL_CMAKEDIR})

#===-- Archives (cpack in the build directory) -----------------------------===#

set(CPACK_PACKAGE_NAME vnreconcile)
set(CPACK_PACKAGE_VENDOR "Vn Reconcile")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Vn Reconcile, a text comparison component")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_SYSTEM_NAME windows-x64)
else()
  set(CPACK_GENERATOR TGZ)
  string(TOLOWER ${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR} CPACK_SYSTEM_NAME)
endif()
# Also the archive's one top folder.
set(VN_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-${CPACK_SYSTEM_NAME})
set(CPACK_PACKAGE_FILE_NAME ${VN_PACKAGE_FILE_NAME})
# Programs and the DLL without their debugging sections (the static core
# keeps its symbols: stripping would take its only symbol table).
set(CPACK_STRIP_FILES ON)
set(CPACK_SOURCE_GENERATOR "")
include(CPack)
