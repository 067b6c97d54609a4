#ifndef ZEVO_BENCH_BENCHFILES_H_
#define ZEVO_BENCH_BENCHFILES_H_

#include <benchmark/benchmark.h>

#include <string>

namespace zevo::bench {

/// How many invoices the sample has: ZEVO_BENCH_INVOICES.
int Invoices();

/// A file in the folder that ZEVO_BENCH_FOLDER names, memory-backed by default.
std::string FileName(const std::string& name);

/// The file that all jobs but the writing ones work on, made when it is first asked for and removed at the end.
const std::string& SampleFile();

/// Makes the benchmark fail unless the condition holds.
void Require(benchmark::State& state, bool condition, const char* what);

/// Has the rate told in bytes of that file.
void SetBytes(benchmark::State& state, const std::string& file);

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_BENCHFILES_H_
