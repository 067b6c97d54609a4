# What every target of the project is compiled with.
function(zevo_set_warnings target)
  target_compile_options(
    ${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion
                      $<$<BOOL:${ZEVO_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()
