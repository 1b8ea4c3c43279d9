# Windows (x86-64), built on another system with MinGW-w64's GCC. The posix
# threads variant, because std::thread and std::mutex exist only there.
#
# ZENTILCONF_WINDOWS_LIBRARIES: folders with libraries built for Windows
# (Qt, GoogleTest), searched beside the compiler's own.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The same sources give the same bytes.
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,--no-insert-timestamp)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -Wl,--no-insert-timestamp)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -Wl,--no-insert-timestamp)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZENTILCONF_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${ZENTILCONF_WINDOWS_LIBRARIES})
# Programs run here; everything that is linked comes from the folders above.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# moc, rcc and uic are the build machine's, of the same Qt version.
set(QT_HOST_PATH /usr CACHE PATH "Qt of the build machine")
