# SPDX-License-Identifier: Apache-2.0
# Finds libsodium, which brings no package of its own for CMake, as the target Libsodium::Libsodium.
find_path(Libsodium_INCLUDE_DIR sodium/crypto_shorthash_siphash24.h)
find_library(Libsodium_LIBRARY sodium)
mark_as_advanced(Libsodium_INCLUDE_DIR Libsodium_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libsodium REQUIRED_VARS Libsodium_LIBRARY Libsodium_INCLUDE_DIR)

if(Libsodium_FOUND AND NOT TARGET Libsodium::Libsodium)
  add_library(Libsodium::Libsodium UNKNOWN IMPORTED)
  set_target_properties(Libsodium::Libsodium PROPERTIES IMPORTED_LOCATION "${Libsodium_LIBRARY}"
                                                        INTERFACE_INCLUDE_DIRECTORIES "${Libsodium_INCLUDE_DIR}")
endif()
