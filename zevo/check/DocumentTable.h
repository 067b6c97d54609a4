// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_DOCUMENTTABLE_H_
#define ZEVO_CHECK_DOCUMENTTABLE_H_

#include <zevo/TextHash.h>
#include <zevo/check/CalendarDate.h>
#include <zevo/check/DocumentHash.h>
#include <zevo/check/DocumentNumber.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeptElement.h>
#include <zevo/check/PlaceSteps.h>
#include <zevo/check/SlotTable.h>
#include <zevo/check/VatRates.h>
#include <zevo/model/Decimal.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// The invoices of a file by series and number, with what is asked of them later: 48 bytes each, and 5 to 11 to find
/// it once one is looked for that does not stand where numbers without gaps would have it; a number of more than 19
/// digits takes more. Not in it are those whose InvoiceNo is no `DocumentNumber`, or longer than the schema allows, or
/// that of one before.
///
/// A document is known by how many came before it in the table.
class DocumentTable {
 public:
  /// What a document counts for.
  enum class State : uint8_t { kLive, kMerged, kCancelled };

  class Document {
   public:
    uint32_t Series() const { return series_; }
    /// Nothing where it was not read, or is of a year that no calendar has.
    std::optional<CalendarDate> Date() const;
    /// SystemEntryDate, to the second.
    std::optional<CalendarTime> EntryTime() const;
    /// Greater for later dates; 0 for none.
    uint64_t DateOrder() const { return date_; }
    uint64_t EntryOrder() const { return entry_; }
    /// InvoiceType; empty for one that is none of the schema's.
    std::string_view Type() const;
    zevo::DocumentTable::State State() const { return static_cast<zevo::DocumentTable::State>(state_); }
    HashForm Hash() const { return static_cast<HashForm>(hash_); }
    /// By the tax points of its lines; of a line without one, by its date.
    zevo::VatTimes VatTimes() const;
    /// NetTotal; nothing where that was not read, or has more than six decimals.
    std::optional<Decimal> Net() const;

   private:
    friend class DocumentTable;

    uint64_t number_ = 0;  // of a long one, its place among those
    int64_t net_ = 0;      // in millionths
    uint64_t date_ : 23 = 0;
    uint64_t entry_ : 40 = 0;
    uint64_t known_ : 1 = 0;    // whether net_ is
    uint64_t offset_ : 48 = 0;  // of the InvoiceNo
    uint64_t steps_ : 16 = 0;
    uint32_t line_ = 0;
    uint32_t column_ = 0;
    uint32_t series_ = 0;
    uint32_t zeros_ : 8 = 0;  // in front of the number
    uint32_t type_ : 5 = 0;
    uint32_t state_ : 2 = 0;  // a State
    uint32_t hash_ : 2 = 0;   // a HashForm
    uint32_t vat_on_ : zevo::VatTimes::kBits = 0;
    uint32_t vat_beside_ : zevo::VatTimes::kBits = 0;
    uint32_t vat_known_ : 1 = 0;
  };

  /// A series, with the types of its documents.
  struct Series {
    struct TypeUse {
      std::string_view type;
      uint32_t documents = 0;
      uint32_t first = 0;  ///< the document with the lowest number
    };

    std::string_view text;  ///< such as "FT A"
    uint32_t documents = 0;
    uint32_t lowest = 0;   ///< the document with the lowest number
    uint32_t highest = 0;  ///< the document with the highest number
    std::vector<TypeUse> types;
  };

  /// An invoice whose number is that of a document.
  struct Copy {
    uint32_t document;
    uint64_t entry;  ///< as `EntryOrder`
  };

  /// The elements that are kept of a document.
  enum class Element : uint8_t { kNumber, kDate, kType, kEntryTime, kHash };

  static State StateOf(const InvoiceFacts& facts);

  void Take(const InvoiceFacts& facts);
  /// Whether the InvoiceNo of the invoice that was taken last is one that the table can have.
  bool IsNumbered() const { return numbered_; }
  /// Whether it is exactly that of one before.
  bool IsRepeated() const { return repeated_; }
  /// Another document with the number of the one that was taken last, which is written with other zeros in front.
  std::optional<uint32_t> OtherSpelling() const { return other_spelling_; }

  uint32_t Count() const { return count_; }
  Document& operator[](uint32_t document) { return (*chunks_[document / kChunk])[document % kChunk]; }
  const Document& operator[](uint32_t document) const { return (*chunks_[document / kChunk])[document % kChunk]; }
  /// The document of a number: the one that is written like it, otherwise the first that differs in zeros in front.
  std::optional<uint32_t> Find(const DocumentNumber& number) const;
  /// The first document of the same series whose number is so much greater. Of numbers of 20 digits none is known.
  std::optional<uint32_t> Neighbour(uint32_t document, int step) const;

  /// Whether one comes before another, by the texts of their series, by number and by zeros in front.
  bool IsBefore(uint32_t one, uint32_t other) const;

  const std::deque<Series>& AllSeries() const { return series_; }
  /// Where a series is among them, by its text.
  std::optional<uint32_t> FindSeries(std::string_view text) const;
  /// Whether the file has a series, and none of its numbers is as low as this one or lower.
  bool IsBelowSeries(const DocumentNumber& number) const;
  /// The invoices that are not in the table, in the order of the file: those that are `IsRepeated`.
  const std::vector<Copy>& Copies() const { return copies_; }
  /// And the others, those that are not `IsNumbered`: when they were entered, as `EntryOrder`.
  const std::vector<uint64_t>& Unnumbered() const { return unnumbered_; }

  /// The documents, series by series as these come in the file, along each by number, of one number by zeros in front.
  std::vector<uint32_t> AlongSeries() const;

  Decimal NumberOf(const Document& document) const;
  /// InvoiceNo as the file has it.
  std::string TextOf(const Document& document) const;
  /// An element of a document, for a finding.
  KeptElement Keep(const Document& document, Element element) const;

 private:
  static constexpr uint32_t kChunk = 256;

  // A number to compare by: the digits of a long one, otherwise the number itself.
  struct Value {
    uint64_t number = 0;
    std::string_view digits = {};

    friend bool operator==(const Value&, const Value&) = default;
    bool operator<(const Value& other) const;
  };

  static Value ValueOf(const DocumentNumber& number);
  const std::string& LongNumberOf(const Document& document) const {
    return long_numbers_[static_cast<size_t>(document.number_)];
  }
  Value ValueOf(const Document& document) const;
  // Within a series.
  bool IsLower(const Document& one, const Document& other) const;
  static uint64_t HashOf(uint32_t series, const Value& value);
  bool Is(uint32_t document, uint32_t series, const Value& value) const {
    return (*this)[document].series_ == series && ValueOf((*this)[document]) == value;
  }
  template <class Matches>
  std::optional<uint32_t> LookUp(uint32_t series, const Value& value, Matches matches) const;
  std::optional<uint32_t> Find(const DocumentNumber& number, uint32_t series, const Value& value) const;
  bool IsWrittenLike(const Document& document, const DocumentNumber& number) const;
  uint32_t SeriesOf(std::string_view text);
  void Add(const InvoiceFacts& facts, const DocumentNumber& number, uint32_t series, const Value& value);
  void AddToSeries(uint32_t document);

  std::vector<std::unique_ptr<std::array<Document, kChunk>>> chunks_;
  uint32_t count_ = 0;
  mutable SlotTable slots_;  // of so many documents as there were when one was looked up
  std::deque<Series> series_;
  TextMap<uint32_t> series_by_text_;
  uint32_t last_series_ = 0;
  std::deque<std::string> long_numbers_;  // as they are written
  PlaceSteps steps_;
  std::vector<Copy> copies_;
  std::vector<uint64_t> unnumbered_;
  bool numbered_ = false;
  bool repeated_ = false;
  bool several_spellings_ = false;  // of some number
  std::optional<uint32_t> other_spelling_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_DOCUMENTTABLE_H_
