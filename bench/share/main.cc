// SPDX-License-Identifier: Apache-2.0
// Tells what share of a file's bytes the fast path takes: share FILE
// 1.000 is a file that it took to the end. Where it gave one up is told by pieces, of 128 KiB at most.

#include <zevo/platform/File.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/fastpath/FastNames.h>
#include <zevo/platform/fastpath/FastParse.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zevo::bench {
namespace {

/// Takes whatever comes.
struct AnySink {
  bool Standalone() { return true; }
  bool StartElement(const FastName&, std::span<const ParsedAttribute>) { return true; }
  bool EndElement(const FastName&) { return true; }
  bool EndEmptyTag(const FastName&) { return true; }
  bool Leaf(const FastName&, std::string_view) { return true; }
  bool Characters(std::string_view) { return true; }
  bool Comment(std::string_view) { return true; }
};

/// The bytes of the pieces that the fast path took.
uint64_t BytesTaken(const std::string& name) {
  InputFile file(name);
  TextDecoder decoder(file);
  FastNames names;
  AnySink sink;
  uint64_t read = 0;
  FastParse<AnySink> parse(decoder, names, sink, read);
  uint64_t taken = 0;
  auto outcome = FastOutcome::kGoesOn;
  while (outcome == FastOutcome::kGoesOn) {
    taken = read;
    outcome = parse.ParsePiece();
  }
  if (outcome == FastOutcome::kUnreadable) throw std::runtime_error("cannot be read");
  return outcome == FastOutcome::kThrough ? read : taken;
}

}  // namespace
}  // namespace zevo::bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: " << argv[0] << " FILE\n";
    return EXIT_FAILURE;
  }
  try {
    const std::string file = argv[1];
    const uint64_t taken = zevo::bench::BytesTaken(file);
    const auto size = static_cast<uint64_t>(std::filesystem::file_size(file));
    // Not rounded up to 1.000.
    const double share = std::floor(static_cast<double>(taken) * 1000 / static_cast<double>(size)) / 1000;
    std::cout << taken << " of " << size << " bytes: " << std::fixed << std::setprecision(3) << share << '\n';
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << argv[1] << ": " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
