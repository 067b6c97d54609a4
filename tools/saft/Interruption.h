#ifndef ZEVO_TOOLS_SAFT_INTERRUPTION_H_
#define ZEVO_TOOLS_SAFT_INTERRUPTION_H_

namespace zevo::saft {

/// Notes Ctrl-C instead of letting it end the program, as long as the one object of it exists. A second one ends the
/// program at once.
class Interruption {
 public:
  Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  bool IsRequested() const;

 private:
  void (*before_)(int);
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INTERRUPTION_H_
