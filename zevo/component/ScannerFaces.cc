// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/FaceOfEntity.h>
#include <zevo/component/FileFaces.h>

#include <memory>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

// A place, which is part of the value.
#define ZEVO_PLACE_OF_VALUE                                                                                  \
  STDMETHODIMP get_Place(_FilePlace** value) override {                                                      \
    return Answer(value, [this] { return std::shared_ptr<zevo::FilePlace>(shared_core(), &core().place); }); \
  }

class FilePlaceFace final : public Face<zevo::FilePlace> {
 public:
  using Face::Face;
  ZEVO_VALUE(Line, line)
  ZEVO_VALUE(Column, column)
  ZEVO_BYTES(Offset, offset)
};

class ScannedElementFace final : public Face<zevo::ScannedElement> {
 public:
  using Face::Face;
  ZEVO_VALUE(Name, name)
  ZEVO_VALUE(Depth, depth)
  ZEVO_VALUE(Text, text)
  ZEVO_PLACE_OF_VALUE
};

class ProblemFace final : public Face<zevo::Problem> {
 public:
  using Face::Face;
  ZEVO_VALUE(Fault, fault)
  ZEVO_VALUE(Path, path)
  ZEVO_PLACE_OF_VALUE
  ZEVO_VALUE(Text, text)
  STDMETHODIMP get_Description(::Languages language, BSTR* value) override {
    return Answer(value, [&] { return Describe(core(), Conversion<Language>::From(language)); });
  }
};

class AuditFileScannerFace final : public Face<zevo::AuditFileScanner> {
 public:
  using Face::Face;
  ZEVO_READ_ONLY(AuditException)
  ZEVO_PROPERTY(AuditFileName)
  STDMETHODIMP OpenAuditFile(VARIANT_BOOL* result) override {
    return Answer(result, [this] {
      entity_ = {};
      return core().OpenAuditFile();
    });
  }
  STDMETHODIMP ReadNext(IDispatch** value, VARIANT_BOOL* result) override {
    if (value == nullptr) return E_POINTER;
    return Answer(result, [&] {
      entity_ = {};
      std::shared_ptr<Record> record;
      const bool succeeded = core().ReadNext(record);
      ComPtr<IDispatch> before = Adopt(*value);
      *value = nullptr;
      *value = FaceOfEntity(record).Detach();
      return succeeded;
    });
  }
  STDMETHODIMP CloseAuditFile(VARIANT_BOOL* result) override {
    return Answer(result, [this] {
      entity_ = {};
      return core().CloseAuditFile();
    });
  }
  ZEVO_PROCEDURE(AbortReading)
  ZEVO_BYTES(BytesRead, BytesRead())
  ZEVO_READ_ONLY(Kind)
  STDMETHODIMP get_Place(_FilePlace** value) override {
    return Answer(value, [this] {
      if (!entity_.place) entity_.place = std::make_shared<zevo::FilePlace>(core().Place());
      return entity_.place;
    });
  }
  ZEVO_READ_ONLY(JournalID)
  STDMETHODIMP get_Elements(_ScannedElementCollection** value) override {
    return Answer(value, [this] {
      if (!entity_.elements) entity_.elements = std::make_shared<ScannedElementCollection>(core().Elements());
      return entity_.elements;
    });
  }
  STDMETHODIMP TextOf(BSTR path, VARIANT* value) override {
    return Answer(value, [&] { return core().TextOf(component::TextOf(path)); });
  }
  STDMETHODIMP PlaceOf(BSTR path, _FilePlace** value) override {
    return Answer(value, [&] { return std::make_shared<zevo::FilePlace>(core().PlaceOf(component::TextOf(path))); });
  }
  STDMETHODIMP get_Problems(_ProblemCollection** value) override {
    return Answer(value, [this] {
      if (!entity_.problems) entity_.problems = std::make_shared<ProblemCollection>(core().Problems());
      return entity_.problems;
    });
  }

 private:
  // What a host asked for of the record that was read last: copied once, however often a loop asks.
  struct Entity {
    std::shared_ptr<zevo::FilePlace> place;
    std::shared_ptr<ScannedElementCollection> elements;
    std::shared_ptr<ProblemCollection> problems;
  };
  Entity entity_;
};

}  // namespace

ZEVO_FACE_OF(FilePlace);
ZEVO_FACE_OF(ScannedElement);
ZEVO_FACE_OF(Problem);
ZEVO_FACE_OF(AuditFileScanner);

}  // namespace zevo::component
