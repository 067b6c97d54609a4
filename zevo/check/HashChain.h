// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_HASHCHAIN_H_
#define ZEVO_CHECK_HASHCHAIN_H_

#include <zevo/check/DocumentHash.h>
#include <zevo/check/DocumentTable.h>
#include <zevo/check/EntityFacts.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zevo {

/// The signed documents of a file along their series by number, each with the Hash before it, whatever the order that
/// they come in. One is kept until that before it and that behind it have come: about 250 bytes.
class HashChain {
 public:
  /// A signature with what it is of.
  struct Link {
    uint32_t document = 0;                ///< in the table
    std::optional<int32_t> version = {};  ///< of its key, as HashControl tells
    std::string text = {};                ///< what is signed, but for the Hash before it
    std::string previous = {};            ///< that Hash, as it is written; empty where there is none
    bool after_unsigned = false;          ///< the document before has Hash "0"
    std::string signature = {};           ///< its bytes
  };

  /// Takes the document that the table has taken last.
  void Take(const InvoiceFacts& facts, const DocumentTable& documents);

  /// The signatures that can be verified since that document came: its own, and that of the document behind it.
  std::span<const Link> Ready() const { return {ready_.data(), ready_count_}; }
  /// The documents before which the file has had none so far, in its order: at least the first of each series.
  std::vector<uint32_t> OpenDocuments() const;
  /// The signature of one of them.
  Link OpenLink(uint32_t document) const;

 private:
  /// A document beside which others have not come.
  struct Kept {
    HashForm form = HashForm::kNone;
    bool waits = false;    // to be judged, for the document before it
    bool awaited = false;  // by the document behind it
    std::optional<int32_t> version = {};
    uint32_t text_size = 0;
    std::unique_ptr<char[]> bytes = {};  // of the signature, and the text behind them

    std::string_view Signature() const;
    std::string_view Text() const;
  };
  using KeptDocuments = std::unordered_map<uint32_t, Kept>;

  static Kept KeptOf(const InvoiceFacts& facts);
  static void Fill(Link& link, uint32_t document, const Kept& kept);
  void AddReady(uint32_t document, const Kept& kept, const Kept& before);
  void Release(KeptDocuments::iterator kept);

  KeptDocuments kept_;  // by their places in the table, which no file can choose
  std::array<Link, 2> ready_;
  size_t ready_count_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_HASHCHAIN_H_
