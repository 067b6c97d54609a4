// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_ELEMENTOUTPUT_H_
#define ZEVO_TOOLS_SAFT_MERGE_ELEMENTOUTPUT_H_

#include <zevo/adapters.h>

#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "tools/saft/errors/Failure.h"

namespace zevo::saft {

/// A new audit file that is written element by element. A failure of the library is a `Failure`.
class ElementOutput {
 public:
  /// The file at `path`, which messages call `name`. Fails when there is such a file.
  // NOLINTNEXTLINE(bugprone-easily-swappable-parameters): where it is comes before what it is called.
  ElementOutput(std::string path, std::string name) : path_(std::move(path)), name_(std::move(name)) {
    file_.set_AuditFileName(path_);
    Require(file_.CreateAuditFile());
  }

  void Begin(std::string_view name) { Require(file_.BeginElement(name)); }
  /// Ends what was begun last.
  void End() { Require(file_.EndElement()); }
  void Write(std::string_view name, std::string_view text) { Require(file_.CreateElement(name, text)); }
  void Write(std::span<const ScannedElement> elements) { Require(file_.CreateElements(elements)); }

  void Save() {
    try {
      file_.CloseAuditFile();
    } catch (const Error& error) {
      FailWith(error, name_, path_);
    }
  }

 private:
  void Require(bool done) const {
    if (!done) FailWith(*file_.AuditException(), name_, path_);
  }

  AuditFileElementWriter file_;
  std::string path_;
  std::string name_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_ELEMENTOUTPUT_H_
