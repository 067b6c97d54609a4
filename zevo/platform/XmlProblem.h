// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_XMLPROBLEM_H_
#define ZEVO_PLATFORM_XMLPROBLEM_H_

#include <zevo/Error.h>
#include <zevo/FilePlace.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {

/// What the parser or the validator has against a file or a schema.
struct XmlProblem {
  /// What is wrong. All but the last are faults of the file.
  enum class Fault {
    kUnreadable,     // the system does not give its bytes
    kNotWellFormed,  // its bytes are no XML, or mean nothing in its encoding
    kRefused,        // it has a document type declaration, or goes beyond a limit
    kInvalid,        // the schema does not allow it
    kSchema,         // the schema, or what was made of it, cannot be used: nothing is known of the file
  };

  /// libxml2's, or that of a run-time error where the file is unreadable.
  int32_t number = 0;
  /// Without the place, and perhaps with a line end behind.
  std::string reason;
  Fault fault = Fault::kNotWellFormed;
  /// How far the parser has come in the file or, when a schema is compiled, where the schema is at fault. The offset is
  /// not known: the parser counts what the file's bytes were turned into.
  FilePlace place = {};
};

/// Takes problems in the order in which they are found, and says whether to go on.
using ProblemSink = std::function<bool(const XmlProblem&)>;

/// The problem of a file that the system does not give, from the error that opening or reading it raised.
XmlProblem UnreadableFile(const Error& error);

/// The sentence for bookkeepers: the reason, then the line and the column as far as they are known.
Error AsError(const XmlProblem& problem, std::string_view source);

/// Raises a problem, if there is one, as the error of `source`.
void Raise(const std::optional<XmlProblem>& problem, std::string_view source);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_XMLPROBLEM_H_
