// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_FILECOMPARISON_H_
#define ZEVO_TESTS_TOOLS_SAFT_FILECOMPARISON_H_

#include <cstddef>
#include <string>
#include <vector>

#include "tests/tools/saft/FileTree.h"

namespace zevo::testing {

/// What `saft create` tells, in the order in which it does. This is the whole list of what may be lost.
enum class Told { kRounded, kTotal, kConstant, kUnknownCode, kAbsent, kSecond, kRepeatedKey, kGuess, kReturns };

/// Something that must be told, with the row where it is; totals have none.
struct Note {
  Told told;
  DatasetRow row;
  std::string what;
};

/// How a file that was made from the list of another one differs from it.
struct FileDifference {
  std::vector<std::string> unexpected;  ///< what may not differ, with its path
  std::vector<Note> notes;              ///< what may, when it is told
  bool is_rewritten = false;            ///< whether texts or elements of records differ by the rules of writing
};

/// Which of the two ways of writing made the second file.
enum class WrittenBy { kMemory, kStream };

/// Compares two files element by element.
FileDifference Compare(const std::vector<FileEntity>& before, const std::vector<FileEntity>& after, WrittenBy way);

/// What `saft create` says on standard error of a dataset that is listed in a folder.
std::string TextOf(const std::vector<Note>& notes, const std::string& folder);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_FILECOMPARISON_H_
