#include "bench/BenchFiles.h"

#include <cstdlib>
#include <filesystem>

#include "tools/generate/SampleRecords.h"

namespace zevo::bench {
namespace {

std::string Environment(const char* name, const char* otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : value;
}

}  // namespace

int Invoices() {
  static const int invoices = std::stoi(Environment("ZEVO_BENCH_INVOICES", "100000"));
  return invoices;
}

std::string FileName(const std::string& name) { return Environment("ZEVO_BENCH_FOLDER", "/dev/shm") + "/" + name; }

const std::string& SampleFile() {
  static const struct Sample {
    Sample() {
      std::filesystem::remove(name);
      AuditFileStreamWriter file;
      file.set_AuditFileName(name);
      generate::WriteTo(file, generate::SampleRecords(Invoices(), 1));
    }
    ~Sample() { std::filesystem::remove(name); }
    std::string name = FileName("zevo-bench.xml");
  } sample;
  return sample.name;
}

void Require(benchmark::State& state, bool condition, const char* what) {
  if (!condition) state.SkipWithError(what);
}

void SetBytes(benchmark::State& state, const std::string& file) {
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(std::filesystem::file_size(file)));
}

}  // namespace zevo::bench
