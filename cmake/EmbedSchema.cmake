# SPDX-License-Identifier: Apache-2.0
# Writes a source file with the bytes of the schema, and again when the schema changes.
function(zevo_embed_schema schema source)
  file(READ ${schema} bytes HEX)
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/BuiltInSchema.cc.in ${source} @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${schema})
endfunction()
