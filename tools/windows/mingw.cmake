# Builds programs for 64-bit Windows on Debian, with mingw-w64. An exe needs no library of the
# compiler beside it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(tools /usr/bin/x86_64-w64-mingw32)
# The variant with POSIX threads is the one with std::thread and std::mutex.
set(CMAKE_C_COMPILER ${tools}-gcc-posix)
set(CMAKE_CXX_COMPILER ${tools}-g++-posix)
set(CMAKE_RC_COMPILER ${tools}-windres)
set(CMAKE_AR ${tools}-gcc-ar-posix)
set(CMAKE_RANLIB ${tools}-gcc-ranlib-posix)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Where else libraries for Windows are is told by the preset.
if(NOT CMAKE_FIND_ROOT_PATH)
  set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
