# mingw-w64.cmake - cross toolchain for the Windows build.
#
# The posix threading flavour of mingw-w64 (std::thread, std::mutex), the DLL
# and every executable linked statically against the toolchain's runtimes (see
# the top CMakeLists).  Test executables run under Wine through
# scripts/wine-run, so ctest drives them like native ones.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(VN_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${VN_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${VN_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${VN_MINGW_PREFIX}-windres)
set(CMAKE_AR ${VN_MINGW_PREFIX}-ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${VN_MINGW_PREFIX}-ranlib CACHE FILEPATH "")

set(CMAKE_FIND_ROOT_PATH /usr/${VN_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

get_filename_component(_vn_root "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
set(CMAKE_CROSSCOMPILING_EMULATOR ${_vn_root}/scripts/wine-run)

# A prefix the build names on CMAKE_PREFIX_PATH (an installed Vn Reconcile
# for a host's build) already holds Windows files: its packages are found
# where they are, not looked for below the toolchain's root.
list(APPEND CMAKE_FIND_ROOT_PATH ${CMAKE_PREFIX_PATH})
