# Linux on arm64: cross-built by clang and lld against the sysroot that make_sysroot unpacks, and run by qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(triple aarch64-linux-gnu)
get_filename_component(CMAKE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../../build/arm64-sysroot ABSOLUTE)
if(NOT EXISTS ${CMAKE_SYSROOT}/made-by)
    message(FATAL_ERROR "There is no sysroot for arm64; ./dev test --arm64 makes it (expected ${CMAKE_SYSROOT})")
endif()

file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../../.llvm-version llvm)
set(CMAKE_CXX_COMPILER clang++-${llvm})
set(CMAKE_CXX_COMPILER_TARGET ${triple})
set(CMAKE_ASM_COMPILER clang++-${llvm})
set(CMAKE_ASM_COMPILER_TARGET ${triple})
# From the first trial on: this machine's own linker knows no arm64.
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT -fuse-ld=lld)
endforeach()

# Programs are this machine's; whatever is built against or linked is the sysroot's.
set(CMAKE_FIND_ROOT_PATH ${CMAKE_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_LIBRARY_ARCHITECTURE ${triple})
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_SYSROOT}/usr/lib/${triple}/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)

# What the sysroot does not have, such as fonts, a program finds on this machine.
# A processor without vectors of any length and pointer authentication: the devices have neither, and emulating them takes a
# sixth more time.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -cpu cortex-a57 -L ${CMAKE_SYSROOT})
