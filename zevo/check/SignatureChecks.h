// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_SIGNATURECHECKS_H_
#define ZEVO_CHECK_SIGNATURECHECKS_H_

#include <zevo/check/DocumentTable.h>
#include <zevo/check/HashChain.h>
#include <zevo/check/PublicKeys.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zevo {

/// Which signatures of a file are wrong. What that means is known at its end: whether none by a key is right, so that
/// the key is another, and which follow from a document before them.
///
/// A signature that is wrong takes 16 bytes, and another 500 where it is kept whole.
class SignatureChecks {
 public:
  /// A signature that is wrong, or that could not be verified.
  struct Kept {
    std::string signature;  ///< its bytes
    std::string text;       ///< what it should be of, the Hash before it behind
  };
  /// The signatures of a version of the key, as HashControl tells it.
  struct OfVersion {
    std::optional<int32_t> version;
    size_t right = 0;
    std::vector<uint32_t> wrong = {};    ///< documents
    std::map<uint32_t, Kept> kept = {};  ///< the first of them in the file
    bool IsOtherKey() const { return right == 0 && wrong.size() > 1; }
  };
  /// A document with a version that no key was given for.
  struct WithoutKey {
    uint32_t document;
    int32_t version;
    std::string signature;
  };
  /// A wrong signature that is told.
  struct Told {
    uint32_t document;
    bool next_too;     ///< the signature of the document behind it is wrong as well, and may be for this one alone
    const Kept* kept;  ///< null where it is not kept
  };

  /// Of wrong signatures so many are kept whole, twice, since half of them may follow from others; 0 keeps all. The
  /// keys must outlive it.
  SignatureChecks(size_t mostKept, const PublicKeys& keys) : most_kept_(2 * mostKept), keys_(keys) {}

  /// Verifies those that can be since the chain took its last document.
  void Take(const HashChain& chain);
  /// Verifies those before which the file has no document.
  void End(const HashChain& chain, const DocumentTable& documents);

  // At the end of the file.

  const std::deque<OfVersion>& Versions() const { return versions_; }
  /// Those that nothing is known of, for want of the document before them, in the order of the table.
  const std::vector<uint32_t>& Unjudged() const { return unjudged_; }
  const std::optional<WithoutKey>& FirstWithoutKey() const { return without_key_; }
  /// Wrong signatures but for those by another key, in the order of the table. Of documents of a series that follow one
  /// another only as many as the others may follow from: a Hash that was changed makes that of the next document wrong.
  std::vector<Told> WrongOnes(const DocumentTable& documents) const;

 private:
  const SignatureVerifier* KeyOf(const HashChain::Link& link);
  OfVersion& VersionOf(const HashChain::Link& link);
  void TakeWrong(const HashChain::Link& link);

  size_t most_kept_;
  const PublicKeys& keys_;
  std::deque<OfVersion> versions_;
  std::optional<WithoutKey> without_key_;
  std::vector<uint32_t> unjudged_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_SIGNATURECHECKS_H_
