// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <CLI/CLI.hpp>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>

#include "tools/generate/SampleRecords.h"

int main(int argc, char** argv) {
  CLI::App program("Writes a valid audit file of any size: a retailer's year, invented.", "generate");
  std::string name;
  int64_t invoices = 0;
  uint64_t seed = 1;
  program.add_option("FILE.xml", name, "Audit file to write; it must not exist yet")->required()->option_text(" ");
  program.add_option("--invoices", invoices, "How many, about 3 KB of file each, its transaction included")
      ->required()
      ->check(CLI::Range(int64_t{1}, int64_t{INT32_MAX}));
  program.add_option("--seed", seed, "Another one makes another year; the same, the same")->capture_default_str();
  std::string key;
  program.add_option("--private-key", key, "PEM file of an RSA key of 1024 bits to sign the invoices with")
      ->check(CLI::ExistingFile);
  zevo::generate::SampleRecords::Months months;
  program
      .add_option_function<int>(
          "--month", [&months](int number) { months = {.first = number - 1, .end = number}; },
          "Write only what belongs to a month of the year, 1 to 12")
      ->check(CLI::Range(1, zevo::generate::SampleRecords::kMonths));
  CLI11_PARSE(program, argc, argv);
  try {
    zevo::AuditFileStreamWriter file;
    file.set_AuditFileName(name);
    std::optional<zevo::DocumentSigner> signer;
    if (!key.empty()) {
      std::ifstream pem(key);
      signer.emplace(std::string(std::istreambuf_iterator(pem), {}));
    }
    zevo::generate::WriteTo(file, zevo::generate::SampleRecords(invoices, seed), months, signer ? &*signer : nullptr);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "generate: " << name << ": " << error.what() << '\n';
    return 2;
  }
}
