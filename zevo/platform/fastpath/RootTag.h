// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_ROOTTAG_H_
#define ZEVO_PLATFORM_FASTPATH_ROOTTAG_H_

#include <zevo/platform/Parser.h>
#include <zevo/platform/fastpath/FastNames.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace zevo {

/// The start tag of the root, the only one on the fast path that may have attributes and declare namespaces.
class RootTag {
 public:
  static constexpr std::ptrdiff_t kMostBytes = 8192;

  explicit RootTag(FastNames& names) : names_(names) {}

  /// Reads the tag, whose name begins here, in a buffer as FastText has it. Gives where it ends; null for a tag that
  /// the fast path does not take.
  const char* Parse(const char* at);

  FastName* Name() const { return name_; }
  bool IsEmpty() const { return empty_; }
  /// As ParserRun gives them: declarations first. Their values lie in the buffer.
  std::span<const ParsedAttribute> Attributes() const { return attributes_; }

 private:
  struct Given {
    std::string_view name;
    std::string_view value;
  };

  const char* ParseAttribute(const char* at);
  bool Declare();
  bool AddOthers();

  FastNames& names_;
  FastName* name_ = nullptr;
  bool empty_ = false;
  std::vector<Given> given_;
  std::vector<ParsedAttribute> attributes_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_ROOTTAG_H_
