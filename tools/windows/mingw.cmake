# Builds programs for 64-bit Windows on Debian with mingw-w64. The programs need no DLLs of the
# compiler.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(tools /usr/bin/x86_64-w64-mingw32)
# The variant with POSIX threads supports std::thread and std::mutex.
set(CMAKE_C_COMPILER ${tools}-gcc-posix)
set(CMAKE_CXX_COMPILER ${tools}-g++-posix)
set(CMAKE_RC_COMPILER ${tools}-windres)
set(CMAKE_AR ${tools}-gcc-ar-posix)
set(CMAKE_RANLIB ${tools}-gcc-ranlib-posix)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# The preset adds the folder of the other libraries for Windows.
if(NOT CMAKE_FIND_ROOT_PATH)
  set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
