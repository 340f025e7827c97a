# GoogleTest: Debian's packaged library natively; built from Debian's sources
# (/usr/src/googletest) for the Windows build.
if(WIN32)
  set(gtest_force_shared_crt OFF CACHE BOOL "" FORCE)
  set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  set(VN_GTEST_LIBS gtest)
else()
  find_package(GTest REQUIRED)
  set(VN_GTEST_LIBS GTest::gtest)
endif()

# vn_add_test(<name> SOURCES ... [LIBS ...])
#
# One executable, one ctest entry: under Wine a suite then costs one process
# start, not one per case.  Every test executable shares tests/TestMain.cpp.
function(vn_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES} ${CMAKE_SOURCE_DIR}/tests/TestMain.cpp ${CMAKE_SOURCE_DIR}/tests/ScriptedPrompt.cpp)
  target_link_libraries(${name} PRIVATE vnreconcile ${VN_GTEST_LIBS} ${ARG_LIBS})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "VN_SOURCE_DIR=${CMAKE_SOURCE_DIR}")
  if(NOT WIN32)
    # The native ANSI code page follows the locale: the suites run under a
    # UTF-8 one whatever the machine's (a fresh CI box often has none).
    set_tests_properties(${name} PROPERTIES ENVIRONMENT_MODIFICATION
                         "LANG=set:C.UTF-8;LC_ALL=unset:;LC_CTYPE=unset:")
  endif()
endfunction()

# vn_add_test_dir(<name> [LIBS ...])
#
# One test executable from every *.cpp in the calling directory; files ending
# in Win32Test.cpp, those in a win32/ subdirectory and resource scripts (*.rc,
# test-only resources linked into the executable) join only in the Windows
# build.
function(vn_add_test_dir name)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  set(dir ${CMAKE_CURRENT_SOURCE_DIR})
  if(WIN32)
    file(GLOB all CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/win32/*.cpp ${dir}/*.rc ${dir}/win32/*.rc)
  else()
    file(GLOB all CONFIGURE_DEPENDS ${dir}/*.cpp)
  endif()
  set(srcs "")
  foreach(f ${all})
    if(NOT WIN32 AND (f MATCHES "Win32Test\\.cpp$" OR f MATCHES "/win32/"))
      continue()
    endif()
    list(APPEND srcs ${f})
  endforeach()
  if(srcs)
    vn_add_test(${name} SOURCES ${srcs} LIBS ${ARG_LIBS})
  endif()
endfunction()
