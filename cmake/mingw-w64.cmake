# SPDX-License-Identifier: Apache-2.0
# Builds for Windows with MinGW-w64. The two files beside this one name the processor.
set(CMAKE_SYSTEM_NAME Windows)
set(triplet ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_OBJDUMP ${triplet}-objdump)

set(CMAKE_FIND_ROOT_PATH /usr/${triplet} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# Programs and libraries stand alone: the compiler's run-time is inside.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)

# The tests run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
