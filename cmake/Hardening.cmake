# SPDX-License-Identifier: Apache-2.0
include(CheckPIESupported)
check_pie_supported()

# What release builds on ELF systems are hardened with: buffers checked where their size is known, stacks guarded,
# programs at addresses that nobody can know, and tables of the linker that nobody can write to.
function(zevo_harden target)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  if(NOT WIN32)
    target_compile_options(
      ${target} PRIVATE $<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>
                        $<$<CONFIG:Release>:-fstack-protector-strong>)
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
  endif()
endfunction()
