# SPDX-License-Identifier: Apache-2.0
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
