// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_INVALIDFILE_H_
#define ZEVO_BENCH_INVALIDFILE_H_

#include <fstream>
#include <iterator>
#include <string>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {

/// Writes the pool file to the output with an amount near its end that is none, and gives its name.
inline std::string InvalidFile(const Setting& setting) {
  std::ifstream pool(setting.Pool(), std::ios::binary);
  std::string xml{std::istreambuf_iterator<char>(pool), {}};
  const size_t name = xml.rfind("GrossTotal>");
  Require(name != std::string::npos, "no pool");
  xml.insert(xml.rfind('<', name), "x");
  std::ofstream(setting.Output(), std::ios::binary) << xml;
  return setting.Output();
}

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_INVALIDFILE_H_
