// SPDX-License-Identifier: Apache-2.0
// Measures one competitor, after a process of its own has verified it:
//   PROGRAM [--once] FOLDER INVOICES [BENCHMARK-OPTION...]
// With --once the job is only done, for tools that count what it takes.

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bench/Competitor.h"

namespace zevo::bench {
namespace {

// In a process of its own, so that what is measured finds the memory of a fresh one.
bool Verified(Competitor& competitor) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      competitor.Verify();
      _exit(EXIT_SUCCESS);
    } catch (const std::exception& error) {
      std::cerr << "wrong: " << error.what() << '\n';
      _exit(EXIT_FAILURE);
    }
  }
  int status = 0;
  return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

// As the kernel tells it of this program alone: what getrusage tells begins with the program that started it.
double PeakMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) * 1024 / 1e6;
  }
  throw std::runtime_error("the kernel does not tell the peak memory");
}

int Main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const bool once = argc == 4 && argv[1] == std::string_view("--once");
  if (argc != 3 && !once) {
    std::cerr << "usage: " << argv[0] << " [--once] FOLDER INVOICES [BENCHMARK-OPTION...]\n";
    return EXIT_FAILURE;
  }
  const auto competitor = MakeCompetitor({argv[argc - 2], std::stoll(argv[argc - 1])});
  if (once) {
    competitor->Run();
    return EXIT_SUCCESS;
  }
  if (!Verified(*competitor)) return EXIT_FAILURE;
  const auto job = [&](benchmark::State& state) {
    int64_t bytes = 0;
    for (auto _ : state) bytes += competitor->Run();
    state.SetBytesProcessed(bytes);
    state.counters["peak_megabytes"] = PeakMegabytes();
  };
  benchmark::RegisterBenchmark("Run", job)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
  return benchmark::RunSpecifiedBenchmarks() == 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace zevo::bench

int main(int argc, char** argv) {
  try {
    return zevo::bench::Main(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << argv[0] << ": " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
