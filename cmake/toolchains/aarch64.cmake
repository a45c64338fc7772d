# Builds for arm64 with the packaged compiler against the libraries in QUORIN_SYSROOT, and runs what it built in an emulator.
# `./dev cross` makes the folder.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(QUORIN_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot-arm64 CACHE PATH "The unpacked arm64 libraries")
file(REAL_PATH ${QUORIN_SYSROOT} sysroot)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUORIN_SYSROOT)
set(CMAKE_SYSROOT ${sysroot})
set(CMAKE_FIND_ROOT_PATH ${sysroot})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(ENV{PKG_CONFIG_SYSROOT_DIR} ${sysroot})
set(ENV{PKG_CONFIG_LIBDIR} ${sysroot}/usr/lib/aarch64-linux-gnu/pkgconfig:${sysroot}/usr/share/pkgconfig)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L ${sysroot})
