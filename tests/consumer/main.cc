// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <filesystem>
#include <iostream>

// Goes into a folder, if one is given, and prints the schema that the installed library finds by itself; fails when
// that does not cut a long name.
int main(int count, char** arguments) {
  if (count > 1) std::filesystem::current_path(arguments[1]);
  zevo::Customer customer;
  customer.set_CompanyName(std::string(100, 'x'));
  std::cout << zevo::Options().SchemaLocation() << '\n';
  const bool found = std::filesystem::exists(zevo::Options().SchemaLocation());
  return found && customer.CompanyName().size() == 60 ? 0 : 1;
}
