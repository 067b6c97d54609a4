// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_BENCH_COMPETITOR_H_
#define ZEVO_BENCH_COMPETITOR_H_

#include <cstdint>
#include <memory>
#include <string>

namespace zevo::bench {

/// How many records the files to write are put together from, again and again, so that making them is not measured.
inline constexpr int64_t kPool = 1000;

/// The files of a measurement, all in one folder, and how many invoices the job has to do with: a multiple of kPool.
struct Setting {
  std::string folder;
  int64_t invoices;

  std::string Input() const { return FileOf(invoices); }
  std::string Pool() const { return FileOf(kPool); }
  /// A file from the generator.
  std::string FileOf(int64_t count) const { return folder + "/" + std::to_string(count) + ".xml"; }
  std::string Output() const { return folder + "/output.xml"; }
};

/// One way to do a job. Each is a program of its own that defines MakeCompetitor.
class Competitor {
 public:
  virtual ~Competitor() = default;
  /// Does the job and looks at what came of it; throws std::runtime_error unless that is right.
  virtual void Verify() = 0;
  /// Does the job, which is what is measured, and gives the bytes of XML that it went through.
  virtual int64_t Run() = 0;
};

/// Prepares what is not measured.
std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting);

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_COMPETITOR_H_
