#include "tools/saft/Interruption.h"

#include <csignal>

namespace zevo::saft {
namespace {

// A signal handler can reach nothing else.
volatile std::sig_atomic_t requested = 0;

void Note(int) {
  requested = 1;
  std::signal(SIGINT, SIG_DFL);
}

}  // namespace

Interruption::Interruption() {
  requested = 0;
  before_ = std::signal(SIGINT, &Note);
  // Who starts a program in the background may have it ignore the signal.
  if (before_ == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

Interruption::~Interruption() { std::signal(SIGINT, before_); }

bool Interruption::IsRequested() const { return requested != 0; }

}  // namespace zevo::saft
