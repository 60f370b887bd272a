# Cross-builds for 64-bit Windows 10 and later with Debian's MinGW-w64. The programs come out static: they need no
# DLL besides those of the system.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_VERSION 10)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The -posix variants have the threads of the C++ library.
set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_AR ${triplet}-gcc-ar-posix CACHE FILEPATH "Archiver")
set(CMAKE_RANLIB ${triplet}-gcc-ranlib-posix CACHE FILEPATH "Archive indexer")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# Appended, since Qt's own toolchain file, which includes this one, has put its prefix there.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
