# SPDX-License-Identifier: Apache-2.0
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)

# Hosts such as VBA call with a stack aligned to 4 bytes, where the compiler expects 16. Floating point is that of SSE2,
# so that numbers come out as on 64 bits.
set(CMAKE_C_FLAGS_INIT "-mstackrealign -msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-mstackrealign -msse2 -mfpmath=sse")
