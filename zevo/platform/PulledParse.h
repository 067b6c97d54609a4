// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_PULLEDPARSE_H_
#define ZEVO_PLATFORM_PULLEDPARSE_H_

#include <zevo/FilePlace.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/XmlProblem.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

class RepeatedInput;
class RestOfEvents;

/// A parse that goes on when it is asked to: the same as Parser's, a piece of the file at a time.
class PulledParse {
 public:
  /// Opens the file. One that cannot be read is a problem at once. Raises error 7 when libxml2 has no memory.
  PulledParse(std::string file, ParserHandler& handler);
  /// Parses, from where it stands, what can be read again. The input must outlive this.
  PulledParse(RepeatedInput& input, ParserHandler& handler);
  PulledParse(const PulledParse&) = delete;
  PulledParse& operator=(const PulledParse&) = delete;
  ~PulledParse();

  /// Parses the next piece. False when there is nothing more to parse: the file is through, or Problem tells what
  /// stopped the parse. What the handler throws ends the parse and comes out.
  bool Feed();
  /// What stopped the parse: the same as Parser's Parse gives for the file.
  const std::optional<XmlProblem>& Problem() const;

  /// Where the start tag begins that the handler is getting. For calls from StartElement, with the element's name.
  /// Zeros behind a comment or a CDATA section that is too long to be parsed in pieces: from there on the rest of the
  /// file comes at once.
  FilePlace StartTagPlace(std::string_view localName);

  /// How many bytes of the file were taken in so far.
  uint64_t BytesRead() const;
  /// How many pieces were parsed so far: the same number for two that parse the same file just as far.
  uint64_t Pieces() const;

 private:
  class Counter;
  class Input;
  class FastState;
  class State;

  void Begin(RepeatedInput* again);
  bool LeaveFastPath();

  std::string file_;
  ParserHandler& handler_;
  std::unique_ptr<Input> input_;
  std::unique_ptr<FastState> fast_;     // null where the file is not tried on the fast path
  std::unique_ptr<RestOfEvents> rest_;  // once that was left
  std::unique_ptr<State> state_;        // null on the fast path, and for a file that cannot be read
  std::optional<XmlProblem> unreadable_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_PULLEDPARSE_H_
