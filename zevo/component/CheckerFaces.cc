// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/EventFace.h>
#include <zevo/component/FileFaces.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

namespace zevo::component {
namespace {

using Microsoft::WRL::ComPtr;

class ToldFindingFace final : public Face<ToldFinding> {
 public:
  using Face::Face;
  ZEVO_VALUE(Rule, rule)
  ZEVO_VALUE(Severity, severity)
  ZEVO_VALUE(Kind, kind)
  ZEVO_VALUE(Key, key)
  ZEVO_VALUE(Path, path)
  ZEVO_VALUE(Line, place.line)
  ZEVO_VALUE(Column, place.column)
  ZEVO_BYTES(Offset, place.offset)
  ZEVO_VALUE(Found, found)
  ZEVO_VALUE(Expected, expected)
  ZEVO_VALUE(Difference, difference)
  STDMETHODIMP get_Message(BSTR* value) override {
    return Answer(value, [this] { return Describe(core(), core().language); });
  }
};

class ToldRuleFace final : public Face<ToldRule> {
 public:
  using Face::Face;
  ZEVO_VALUE(Id, id)
  ZEVO_VALUE(Severity, severity)
  STDMETHODIMP get_Title(BSTR* value) override {
    return Answer(value, [this] { return InItsLanguage(core().title); });
  }
  STDMETHODIMP get_Explanation(BSTR* value) override {
    return Answer(value, [this] { return InItsLanguage(core().explanation); });
  }
  ZEVO_VALUE(Source, source)

 private:
  std::string_view InItsLanguage(const std::string_view (&texts)[2]) const {
    return texts[static_cast<size_t>(core().language)];
  }
};

class AuditFileCheckerFace final : public EventFace<zevo::AuditFileChecker> {
 public:
  explicit AuditFileCheckerFace(std::shared_ptr<zevo::AuditFileChecker> checker)
      : EventFace(std::move(checker), __uuidof(__AuditFileChecker)) {
    core().Found = [this](const Finding& finding) { RaiseFound(finding); };
    core().Progress = [this](int64_t bytesRead) {
      RaiseProgress(bytesRead);
      return true;
    };
  }

  ZEVO_READ_ONLY(AuditException)
  ZEVO_PROPERTY(AuditFileName)
  ZEVO_PROPERTY(AuditFileSchema)
  ZEVO_READ_ONLY(Language)
  STDMETHODIMP put_Language(::Languages value) override {
    return Do([&] {
      core().set_Language(Conversion<Language>::From(value));
      rules_ = nullptr;
    });
  }
  ZEVO_PROPERTY(MostFindings)
  STDMETHODIMP AddPublicKey(BSTR pem, LONG version) override {
    return Do([&] { core().AddPublicKey(TextOf(pem), version); });
  }
  STDMETHODIMP get_Severity(BSTR id, ::Severities* value) override {
    return Answer(value, [&] { return core().Severity(TextOf(id)); });
  }
  STDMETHODIMP put_Severity(BSTR id, ::Severities value) override {
    return Do([&] { core().set_Severity(TextOf(id), Conversion<Severity>::From(value)); });
  }
  STDMETHODIMP CheckAuditFile(VARIANT_BOOL* result) override {
    // Keeps the object alive: a handler may release the last reference of the host.
    const ComPtr<IUnknown> held(static_cast<::_AuditFileChecker*>(this));
    return Answer(result, [this] {
      // From a handler, what refuses; the findings are those of the check that goes on.
      if (checking_) return core().CheckAuditFile();
      findings_ = std::make_shared<FindingCollection>();
      checking_ = true;
      const bool judged = core().CheckAuditFile();
      checking_ = false;
      return judged;
    });
  }
  ZEVO_PROCEDURE(AbortChecking)
  ZEVO_BYTES(BytesRead, BytesRead())
  ZEVO_READ_ONLY(Verdict)
  STDMETHODIMP CountOf(BSTR id, LONG* value) override {
    return Answer(value, [&] { return core().CountOf(TextOf(id)); });
  }
  STDMETHODIMP get_Findings(_FindingCollection** value) override {
    return Answer(value, [this] { return findings_; });
  }
  STDMETHODIMP MessageOf(_Finding* finding, BSTR* value) override {
    return Answer(value, [&] {
      const std::shared_ptr<ToldFinding> told = CoreOf<ToldFinding>(finding);
      if (told == nullptr) throw MakeRunTimeError(RunTimeError::kObjectNotSet);
      return core().MessageOf(*told);
    });
  }
  STDMETHODIMP get_Rules(_RuleInfoCollection** value) override {
    return Answer(value, [this] {
      if (!rules_) rules_ = std::make_shared<RuleInfoCollection>(zevo::AuditFileChecker::Rules(), core().Language());
      return rules_;
    });
  }
  STDMETHODIMP CountOfSeverity(BSTR id, ::Severities severity, LONG* value) override {
    return Answer(value, [&] { return core().CountOf(TextOf(id), Conversion<Severity>::From(severity)); });
  }
  STDMETHODIMP RecordsOf(BSTR kind, LONG* value) override {
    return Answer(value, [&] {
      const auto known = EntityKindOf(TextOf(kind));
      if (!known) throw MakeRunTimeError(RunTimeError::kInvalidCall);
      return core().RecordsOf(*known);
    });
  }

 private:
  // The members of the event interface.
  static constexpr DISPID kFound = 1;
  static constexpr DISPID kProgress = 2;

  void RaiseFound(const Finding& finding) {
    const auto told = std::make_shared<ToldFinding>(ToldFinding{finding, core().Language()});
    findings_->Add(told);
    const ComPtr<::_Finding> face = FaceFor(told);
    VARIANT argument{};
    V_VT(&argument) = VT_DISPATCH;
    V_DISPATCH(&argument) = face.Get();
    Raise(kFound, {&argument, 1});
  }
  void RaiseProgress(int64_t bytesRead) {
    VARIANT argument{};
    V_VT(&argument) = VT_R8;
    V_R8(&argument) = static_cast<double>(bytesRead);
    Raise(kProgress, {&argument, 1});
  }

  bool checking_ = false;
  std::shared_ptr<FindingCollection> findings_ = std::make_shared<FindingCollection>();
  std::shared_ptr<RuleInfoCollection> rules_;  // in the language that is set; null until a host asks for them
};

}  // namespace

ZEVO_FACE_OF(ToldFinding);
ZEVO_FACE_OF(ToldRule);
ZEVO_FACE_OF(AuditFileChecker);

}  // namespace zevo::component
