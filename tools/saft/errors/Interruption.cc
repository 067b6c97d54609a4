// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/errors/Interruption.h"

#include <utility>

namespace zevo::saft {
namespace {

// Global because a signal handler has no other way to reach it.
volatile std::sig_atomic_t requested = 0;  // the signal

bool noting = false;  // whether there is an object

void Note(int signal) { requested = signal; }

void NoteOnce(int signal) {
  requested = signal;
  std::signal(signal, SIG_DFL);
}

}  // namespace

void Interrupted::EndProgram() const {
  std::signal(signal_, SIG_DFL);
  std::raise(signal_);
}

Interruption::Interruption(During during)
    : within_(std::exchange(noting, true)), noted_(during == During::kReading ? 1 : kSignals.size()) {
  if (within_) return;
  requested = 0;
  for (size_t i = 0; i < noted_; ++i) {
    before_[i] = std::signal(kSignals[i], during == During::kWriting ? &Note : &NoteOnce);
    // A signal that was ignored when the program started, as for one in the background, stays ignored.
    if (before_[i] == SIG_IGN) std::signal(kSignals[i], SIG_IGN);
  }
}

Interruption::~Interruption() {
  if (within_) return;
  noting = false;
  for (size_t i = 0; i < noted_; ++i) std::signal(kSignals[i], before_[i]);
  requested = 0;
}

bool Interruption::IsRequested() { return requested != 0; }

void Interruption::ThrowIfRequested() {
  if (requested != 0) throw Interrupted(requested);
}

}  // namespace zevo::saft
