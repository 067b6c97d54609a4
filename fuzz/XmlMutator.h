// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FUZZ_XMLMUTATOR_H_
#define ZEVO_FUZZ_XMLMUTATOR_H_

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::fuzz {

/// Changes a file as one who knows XML would: moves tags about, puts in what XML is made of, writes it in another
/// encoding.
class XmlMutator {
 public:
  explicit XmlMutator(unsigned seed) : random_(seed) {}

  /// A changed file, which may be of any length.
  std::string Mutated(std::string_view file);

 private:
  size_t Below(size_t limit) { return limit == 0 ? 0 : std::uniform_int_distribution<size_t>(0, limit - 1)(random_); }
  template <class Range>
  const auto& OneOf(const Range& range) {
    return range[Below(std::size(range))];
  }

  void MoveTags(std::string& file);
  void PutIn(std::string& file);
  void ChangeTag(std::string& file);
  void ChangeByte(std::string& file);
  void Deepen(std::string& file);
  void Lengthen(std::string& file);
  void EndLinesOtherwise(std::string& file);
  void DeclareOtherwise(std::string& file);
  void Encode(std::string& file);

  std::minstd_rand random_;
};

}  // namespace zevo::fuzz

#endif  // ZEVO_FUZZ_XMLMUTATOR_H_
