// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_RECORD_H_
#define ZEVO_MODEL_RECORD_H_

#include <zevo/Api.h>
#include <zevo/model/Amount.h>
#include <zevo/model/BasePath.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Property.h>
#include <zevo/model/SAFTConstants.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {

/// What every record derives from: a set of properties that hold data and nothing else.
///
/// Assigning to a property compares first: an equal value changes nothing. A new text is cut to the length that the
/// schema gives its element, in characters, while `Options::ValidateOnAssignment` is on; nothing else is checked.
/// An object-valued property is either owned (never null, the same object for the record's life) or assigned by
/// reference (null until assigned, shared with whoever assigned it).
class ZEVO_API Record {
 public:
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;
  virtual ~Record();

  /// What kind of entity of the file it is; none for a line, an address and other parts of one.
  virtual std::optional<EntityKind> Kind() const { return std::nullopt; }

 protected:
  Record();

  /// Where a property is checked: the path of its record, the place of its declaration in the record and the name of
  /// its element.
  struct Check {
    BasePath path;
    int place;
    std::string_view element;
  };

  static void Assign(std::string& field, std::string_view value, const Check& check);
  /// Values other than texts are never cut. They are looked up all the same: a schema with a broken limit fails here.
  template <class T>
  static void Assign(T& field, T value, const Check& check) {
    if (field == value) return;
    LookUp(check);
    field = value;
  }

 private:
  friend std::span<const Property> PropertiesOf(const Record& record);
  virtual std::span<const Property> Properties() const = 0;

  static void LookUp(const Check& check);
};

/// The properties of a record in slot order, whatever its class.
inline std::span<const Property> PropertiesOf(const Record& record) { return record.Properties(); }

}  // namespace zevo

// How a record class declares its properties: one line each, in slot order, under ZEVO_RECORD. Each line makes the
// accessors, the field and the row of `PropertiesOf`. ZEVO_TEXT(CompanyName), in line 24 of a header, stands for
//
//  private:
//   std::string CompanyName_{};
//
//  public:
//   const std::string& CompanyName() const { return CompanyName_; }
//   void set_CompanyName(std::string_view value) {
//     Assign(CompanyName_, value, Check{CheckPath(), 24 - kFirstLine, "CompanyName"});
//   }
//   static constexpr zevo::Property PropertyAt(zevo::internal::SourceLine<24>) {
//     return zevo::internal::ReadWriteProperty<&Self::CompanyName, &Self::set_CompanyName, zevo::TextKind::kPlain>(
//         "CompanyName");
//   }
//
// where kFirstLine, the line of ZEVO_RECORD, and CheckPath() come from that macro. `PropertiesOf` asks for PropertyAt
// of every line from there on, and takes those that exist.

#define ZEVO_RECORD_COMMON(Class)                              \
 public:                                                       \
  Class();                                                     \
  ~Class() override;                                           \
  static constexpr int kFirstLine = __LINE__;                  \
                                                               \
 private:                                                      \
  std::span<const zevo::Property> Properties() const override; \
  using Self = Class

/// A record whose element has one path.
#define ZEVO_RECORD(Class, basePath)                                         \
  ZEVO_RECORD_COMMON(Class);                                                 \
  static constexpr BasePath CheckPath() { return zevo::BasePath::basePath; } \
                                                                             \
 public:                                                                     \
  static_assert(true)

/// The same for a record that is an entity of the file. The path of a kind has its name.
#define ZEVO_ENTITY(Class, kind)                                                           \
  ZEVO_RECORD(Class, kind);                                                                \
  std::optional<zevo::EntityKind> Kind() const override { return zevo::EntityKind::kind; } \
  static_assert(true)

/// A record whose path comes from the owner it is attached to.
#define ZEVO_ATTACHED_RECORD(Class, unattached)     \
  ZEVO_RECORD_COMMON(Class);                        \
  BasePath CheckPath() const { return base_path_; } \
  BasePath base_path_ = zevo::BasePath::unattached; \
                                                    \
 public:                                            \
  static_assert(true)

/// A property's row in the table of its class.
#define ZEVO_IN_TABLE(Name, ...)                                                               \
  static constexpr zevo::Property PropertyAt(zevo::internal::SourceLine<__LINE__>) {           \
    static_assert(__LINE__ - kFirstLine < zevo::internal::kMaxRecordLines, "record too long"); \
    return zevo::internal::__VA_ARGS__(#Name);                                                 \
  }                                                                                            \
  static_assert(true)

/// A property that is looked up in the schema when it is assigned.
#define ZEVO_CHECKED(Type, Argument, Result, Name, element, kind)                                                 \
 private:                                                                                                         \
  Type Name##_{};                                                                                                 \
                                                                                                                  \
 public:                                                                                                          \
  Result Name() const { return Name##_; }                                                                         \
  void set_##Name(Argument value) { Assign(Name##_, value, Check{CheckPath(), __LINE__ - kFirstLine, element}); } \
  ZEVO_IN_TABLE(Name, ReadWriteProperty<&Self::Name, &Self::set_##Name, zevo::TextKind::kind>)

#define ZEVO_TEXT_OF_KIND(Name, element, kind) \
  ZEVO_CHECKED(std::string, std::string_view, const std::string&, Name, element, kind)
/// A text that is cut to the length of the element of its name.
#define ZEVO_TEXT(Name) ZEVO_TEXT_OF_KIND(Name, #Name, kPlain)
/// The same with the length of an element of another name.
#define ZEVO_TEXT_CHECKED_AS(Name, element) ZEVO_TEXT_OF_KIND(Name, element, kPlain)
// Texts of other kinds: see TextKind.
#define ZEVO_DATE(Name) ZEVO_TEXT_OF_KIND(Name, #Name, kDate)
#define ZEVO_DATE_TIME(Name) ZEVO_TEXT_OF_KIND(Name, #Name, kDateTime)
#define ZEVO_PERIOD(Name) ZEVO_TEXT_OF_KIND(Name, #Name, kPeriod)

// Numbers and flags.
#define ZEVO_AMOUNT(Name) ZEVO_CHECKED(zevo::Amount, zevo::Amount, zevo::Amount, Name, #Name, kPlain)
#define ZEVO_COUNT(Name) ZEVO_CHECKED(int32_t, int32_t, int32_t, Name, #Name, kPlain)
#define ZEVO_SINGLE(Name) ZEVO_CHECKED(float, float, float, Name, #Name, kPlain)
#define ZEVO_FLAG(Name) ZEVO_CHECKED(bool, bool, bool, Name, #Name, kPlain)

/// A value of an enumeration, stored as given: any 32-bit number is accepted.
#define ZEVO_CODE(Enumeration, Name)                            \
 private:                                                       \
  zevo::Enumeration Name##_{};                                  \
                                                                \
 public:                                                        \
  zevo::Enumeration Name() const { return Name##_; }            \
  void set_##Name(zevo::Enumeration value) { Name##_ = value; } \
  ZEVO_IN_TABLE(Name, ReadWriteProperty<&Self::Name, &Self::set_##Name>)

/// A text that is always the same.
#define ZEVO_CONSTANT(Name, text)           \
  std::string Name() const { return text; } \
  ZEVO_IN_TABLE(Name, ReadOnlyProperty<&Self::Name>)

/// A record or a collection that is created with its owner.
#define ZEVO_OWNED(Class, Name)                                           \
 private:                                                                 \
  std::shared_ptr<zevo::Class> Name##_ = std::make_shared<zevo::Class>(); \
                                                                          \
 public:                                                                  \
  const std::shared_ptr<zevo::Class>& Name() const { return Name##_; }    \
  ZEVO_IN_TABLE(Name, ReadOnlyProperty<&Self::Name>)

/// A record assigned by reference.
#define ZEVO_SHARED(Class, Name) ZEVO_SHARED_ACCESSORS(Class, Name, )

/// A record assigned by reference, which thereby receives its path.
#define ZEVO_ATTACHED(Class, Name, path) ZEVO_SHARED_ACCESSORS(Class, Name, if (Name##_) Name##_->set_BasePath(path))

#define ZEVO_SHARED_ACCESSORS(Class, Name, afterAssignment)            \
 private:                                                              \
  std::shared_ptr<zevo::Class> Name##_;                                \
                                                                       \
 public:                                                               \
  const std::shared_ptr<zevo::Class>& Name() const { return Name##_; } \
  void set_##Name(std::shared_ptr<zevo::Class> value) {                \
    Name##_ = std::move(value);                                        \
    afterAssignment;                                                   \
  }                                                                    \
  ZEVO_IN_TABLE(Name, ReadWriteProperty<&Self::Name, &Self::set_##Name>)

#endif  // ZEVO_MODEL_RECORD_H_
