// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <filesystem>
#include <iostream>

// Prints the schema that the installed library finds by itself; fails when that does not cut a long name.
int main() {
  zevo::Customer customer;
  customer.set_CompanyName(std::string(100, 'x'));
  std::cout << zevo::Options().SchemaLocation() << '\n';
  const bool found = std::filesystem::exists(zevo::Options().SchemaLocation());
  return found && customer.CompanyName().size() == 60 ? 0 : 1;
}
