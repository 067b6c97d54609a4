# SPDX-License-Identifier: Apache-2.0
# What every target of the project is compiled with. GCC 12 sees overlaps in additions of strings where there are none.
function(zevo_set_warnings target)
  target_compile_options(
    ${target}
    PRIVATE -Wall -Wextra -Wpedantic -Wconversion $<$<BOOL:${ZEVO_WARNINGS_AS_ERRORS}>:-Werror>
            $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
endfunction()
