// SPDX-License-Identifier: Apache-2.0
#include <olectl.h>
#include <zevo/adapters.h>
#include <zevo/component/Faces.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/check/CheckTest.h"
#include "tests/component/Com.h"
#include "tests/component/EventSink.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {
namespace {

using component::FaceFor;
using component::ToldFinding;

constexpr auto kInvalidCall = static_cast<HRESULT>(0x800A0005);
constexpr auto kOverflow = static_cast<HRESULT>(0x800A0006);
constexpr auto kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);
constexpr auto kObjectNotSet = static_cast<HRESULT>(0x800A005B);

constexpr std::string_view kKey = R"(-----BEGIN RSA PUBLIC KEY-----
MIGJAoGBAMJnNvJlaVA19aaWniWVzBCqW1t6PVJXmhmheIpnJM0aNEJY8CzpjlAo
mDFdycmLXmF7tdg6GvUmBnO9ZHeO/feZVaRMUs3XLcxWWjiXHR7vjSiOnM7S/La3
7fu0T/7gLMITYYViUG7E0wHdIQwIpbf/1/G+XMLEv0ODzP7i/WoTAgMBAAE=
-----END RSA PUBLIC KEY-----
)";

const std::wstring kRepeated =
    L"Movimento 2008-03-05 V 1, linha 2: RecordID 1 aparece mais do que uma vez no movimento.";
const std::wstring kRepeatedInEnglish =
    L"Transaction 2008-03-05 V 1, line 2: RecordID 1 appears more than once in the transaction.";

std::wstring Wide(std::string_view text) { return std::wstring(text.begin(), text.end()); }

// Of one warning, one information and one error, in this order.
std::string FileOfEachSeverity() {
  return CleanFile()
      .With("Header/FiscalYear", "2011")
      .With("Header/DateCreated", "2008-12-30")
      .With("Transaction/Line[2]/RecordID", "1")
      .Text();
}

// What a member gives that a host calls through the table of functions.
template <class Object>
std::wstring TextFrom(Object& object, HRESULT (STDMETHODCALLTYPE Object::*get)(BSTR*)) {
  Bstr text;
  EXPECT_EQ((object.*get)(text.Receive()), S_OK);
  return text.Text();
}
template <class Value, class Object>
Value ValueFrom(Object& object, HRESULT (STDMETHODCALLTYPE Object::*get)(Value*)) {
  Value value{};
  EXPECT_EQ((object.*get)(&value), S_OK);
  return value;
}
template <class Object, class Result>
ComPtr<Result> ObjectFrom(Object& object, HRESULT (STDMETHODCALLTYPE Object::*get)(Result**)) {
  ComPtr<Result> result;
  EXPECT_EQ((object.*get)(result.GetAddressOf()), S_OK);
  return result;
}

// The items of a collection, as For Each has them.
template <class Item, class Collection>
std::vector<ComPtr<Item>> ItemsOf(Collection& collection) {
  ComPtr<IUnknown> started;
  ComPtr<IEnumVARIANT> each;
  EXPECT_EQ(collection.NewEnum(started.GetAddressOf()), S_OK);
  EXPECT_EQ(started.As(&each), S_OK);
  std::vector<ComPtr<Item>> items;
  for (Variant item; each->Next(1, &*item, nullptr) == S_OK; item = Variant()) {
    EXPECT_EQ(item.Type(), VT_DISPATCH);
    items.emplace_back();
    EXPECT_EQ(item.Object()->QueryInterface(__uuidof(Item), reinterpret_cast<void**>(items.back().GetAddressOf())),
              S_OK);
  }
  return items;
}

class CheckerFacesTest : public ::testing::Test {
 protected:
  bool Check(std::string_view document) {
    EXPECT_EQ(checker_->put_AuditFileName(Bstr(Wide(folder_.Write("saft.xml", document)))), S_OK);
    return CheckAgain();
  }
  bool CheckAgain() {
    VARIANT_BOOL judged = VARIANT_FALSE;
    EXPECT_EQ(checker_->CheckAuditFile(&judged), S_OK);
    return judged == VARIANT_TRUE;
  }
  Verdicts Verdict() { return ValueFrom(*checker_.Get(), &_AuditFileChecker::get_Verdict); }
  LONG CountOf(const wchar_t* id) {
    LONG count = -1;
    EXPECT_EQ(checker_->CountOf(Bstr(id), &count), S_OK);
    return count;
  }
  LONG CountOfSeverity(const wchar_t* id, Severities severity) {
    LONG count = -1;
    EXPECT_EQ(checker_->CountOfSeverity(Bstr(id), severity, &count), S_OK);
    return count;
  }
  LONG RecordsOf(const wchar_t* kind) {
    LONG records = -1;
    EXPECT_EQ(checker_->RecordsOf(Bstr(kind), &records), S_OK);
    return records;
  }
  ComPtr<_FindingCollection> Collection() { return ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_Findings); }
  std::vector<ComPtr<_Finding>> Findings() { return ItemsOf<_Finding>(*Collection().Get()); }
  std::vector<std::wstring> Rules() {
    std::vector<std::wstring> rules;
    for (const ComPtr<_Finding>& finding : Findings()) rules.push_back(TextFrom(*finding.Get(), &_Finding::get_Rule));
    return rules;
  }
  std::wstring MessageOf(_Finding* finding) {
    Bstr message;
    EXPECT_EQ(checker_->MessageOf(finding, message.Receive()), S_OK);
    return message.Text();
  }
  LONG FailureNumber() {
    const auto exception = ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_AuditException);
    return exception ? ValueFrom(*exception.Get(), &_AuditException::get_Number) : 0;
  }
  std::wstring FailureText() {
    return TextFrom(*ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_AuditException).Get(),
                    &_AuditException::get_Description);
  }
  void Connect(FindingSink& sink) {
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    ASSERT_EQ(checker_.As(&container), S_OK);
    ASSERT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileChecker), &point), S_OK);
    ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  }

  TemporaryFolder folder_;
  ComPtr<_AuditFileChecker> checker_ = FaceFor(std::make_shared<zevo::AuditFileChecker>());
};

const std::vector<std::wstring> kEachSeverity = {L"HDR-PERIOD", L"HDR-PERIOD", L"GL-RECORD"};

TEST_F(CheckerFacesTest, ACleanFileHasNoFindings) {
  EXPECT_EQ(Verdict(), verdictNotJudged);
  EXPECT_EQ(Findings().size(), 0U);
  EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_BytesRead), 0);
  const std::string document = CleanFile().Text();
  EXPECT_TRUE(Check(document));
  EXPECT_EQ(Verdict(), verdictClean);
  EXPECT_EQ(Findings().size(), 0U);
  EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_BytesRead), static_cast<DOUBLE>(document.size()));
  EXPECT_EQ(ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_AuditException).Get(), nullptr);
}

TEST_F(CheckerFacesTest, AFindingTellsWhatIsWrongAndWhere) {
  const std::string document = FileOfEachSeverity();
  EXPECT_TRUE(Check(document));
  EXPECT_EQ(Verdict(), verdictErrors);
  EXPECT_EQ(Rules(), kEachSeverity);
  const std::vector<ComPtr<_Finding>> findings = Findings();
  _Finding& year = *findings[0].Get();
  EXPECT_EQ(ValueFrom(year, &_Finding::get_Severity), severityWarning);
  EXPECT_EQ(TextFrom(year, &_Finding::get_Kind), L"Header");
  EXPECT_EQ(TextFrom(year, &_Finding::get_Key), L"");
  EXPECT_EQ(TextFrom(year, &_Finding::get_Path), L"FiscalYear");
  EXPECT_EQ(TextFrom(year, &_Finding::get_Found), L"2011");
  EXPECT_EQ(TextFrom(year, &_Finding::get_Expected), L"2008");
  EXPECT_EQ(TextFrom(year, &_Finding::get_Difference), L"");
  EXPECT_EQ(ValueFrom(year, &_Finding::get_Line), 13);
  EXPECT_EQ(ValueFrom(year, &_Finding::get_Column), 1);
  EXPECT_EQ(ValueFrom(year, &_Finding::get_Offset), static_cast<DOUBLE>(document.find("<FiscalYear>")));
  EXPECT_EQ(ValueFrom(*findings[1].Get(), &_Finding::get_Severity), severityInformation);

  _Finding& record = *findings[2].Get();
  EXPECT_EQ(ValueFrom(record, &_Finding::get_Severity), severityError);
  EXPECT_EQ(TextFrom(record, &_Finding::get_Kind), L"Transaction");
  EXPECT_EQ(TextFrom(record, &_Finding::get_Key), L"2008-03-05 V 1");
  EXPECT_EQ(TextFrom(record, &_Finding::get_Path), L"Line[2]/RecordID");
  EXPECT_EQ(TextFrom(record, &_Finding::get_Message), kRepeated);
}

TEST_F(CheckerFacesTest, EveryMemberOfAFindingIsItsOwn) {
  ToldFinding told;
  told.rule = "GL-SUM";
  told.severity = Severity::kInformation;
  told.key = "k";
  told.path = "/AuditFile";
  told.place = {3, 4, INT64_C(1) << 40};
  told.found = "1.00";
  told.expected = "2.00";
  told.difference = "-1.00";
  told.language = Language::kEnglish;
  const ComPtr<_Finding> finding = FaceFor(std::make_shared<ToldFinding>(told));
  const std::pair<const wchar_t*, const wchar_t*> texts[] = {
      {L"Rule", L"GL-SUM"},
      {L"Kind", L""},
      {L"Key", L"k"},
      {L"Path", L"/AuditFile"},
      {L"Found", L"1.00"},
      {L"Expected", L"2.00"},
      {L"Difference", L"-1.00"},
      {L"Message", L"GL-SUM, /AuditFile: found \"1.00\", expected \"2.00\"."}};
  for (const auto& [name, text] : texts) EXPECT_EQ(Get(finding.Get(), name).value.Text(), std::wstring(text));
  EXPECT_EQ(Get(finding.Get(), L"Severity").value.Number(), severityInformation);
  EXPECT_EQ(Get(finding.Get(), L"Line").value.Number(), 3);
  EXPECT_EQ(Get(finding.Get(), L"Column").value.Number(), 4);
  EXPECT_EQ(V_R8(&*Get(finding.Get(), L"Offset").value), static_cast<DOUBLE>(INT64_C(1) << 40));
  told.place.line = INT64_C(1) << 40;
  LONG line = 5;
  EXPECT_EQ(FaceFor(std::make_shared<ToldFinding>(told))->get_Line(&line), kOverflow);
  EXPECT_EQ(line, 0);
}

TEST_F(CheckerFacesTest, AMessageIsInTheLanguageThatWasSetAsItWasFound) {
  EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_Language), languagePortuguese);
  Check(FileOfEachSeverity());
  const ComPtr<_Finding> finding = Findings()[2];
  EXPECT_EQ(MessageOf(finding.Get()), kRepeated);
  ASSERT_EQ(checker_->put_Language(languageEnglish), S_OK);
  EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_Language), languageEnglish);
  EXPECT_EQ(TextFrom(*finding.Get(), &_Finding::get_Message), kRepeated);
  EXPECT_EQ(MessageOf(finding.Get()), kRepeatedInEnglish);
  CheckAgain();
  EXPECT_EQ(TextFrom(*Findings()[2].Get(), &_Finding::get_Message), kRepeatedInEnglish);

  for (const LONG number : {-1L, 2L}) {
    EXPECT_EQ(checker_->put_Language(static_cast<Languages>(number)), kInvalidCall);
  }
  EXPECT_EQ(TakeErrorInfo().description, L"Chamada ou argumento inv\x00E1lido (2).");
  EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_Language), languageEnglish);
  Bstr none;
  EXPECT_EQ(checker_->MessageOf(nullptr, none.Receive()), kObjectNotSet);
  EXPECT_EQ(Call(checker_.Get(), L"MessageOf", {Variant(checker_.Get())}).result, DISP_E_TYPEMISMATCH);
}

TEST_F(CheckerFacesTest, FindingsComeAsEventsToo) {
  const ComPtr<FindingSink> sink = MakeFindingSink();
  std::vector<ComPtr<_Finding>> told;
  sink->on_finding = [&](_Finding& finding) {
    told.emplace_back(&finding);
    // By then it is among them.
    EXPECT_TRUE(SameObject(Findings().back().Get(), &finding));
    return S_OK;
  };
  Connect(*sink.Get());
  EXPECT_TRUE(Check(FileOfEachSeverity()));
  EXPECT_EQ(sink->rules, kEachSeverity);
  const std::vector<ComPtr<_Finding>> kept = Findings();
  ASSERT_EQ(kept.size(), told.size());
  for (size_t i = 0; i < kept.size(); ++i) EXPECT_TRUE(SameObject(kept[i].Get(), told[i].Get()));
}

TEST_F(CheckerFacesTest, AbortFromAHandler) {
  const ComPtr<FindingSink> sink = MakeFindingSink();
  sink->on_finding = [&](_Finding&) { return checker_->AbortChecking(); };
  Connect(*sink.Get());
  EXPECT_FALSE(Check(FileOfEachSeverity()));
  EXPECT_EQ(FailureNumber(), ReadingAborted);
  EXPECT_EQ(Verdict(), verdictNotJudged);
  EXPECT_EQ(Rules(), sink->rules);
  EXPECT_FALSE(sink->rules.empty());
}

TEST_F(CheckerFacesTest, AnErrorOfAHandlerEndsTheCheck) {
  const ComPtr<FindingSink> sink = MakeFindingSink();
  sink->on_finding = [](_Finding&) { return static_cast<HRESULT>(0x800A000B); };
  Connect(*sink.Get());
  EXPECT_FALSE(Check(FileOfEachSeverity()));
  EXPECT_EQ(sink->rules.size(), 1U);
  EXPECT_EQ(FailureNumber(), 11);
  EXPECT_EQ(FailureText(), L"Divis\x00E3o por zero");
  EXPECT_EQ(Verdict(), verdictNotJudged);
}

TEST_F(CheckerFacesTest, ProgressIsToldOfEachPass) {
  std::string document = FileOfEachSeverity();
  document.insert(document.find("<AuditFile"), "<!--" + std::string(1'000'000, ' ') + "-->");
  const ComPtr<FindingSink> sink = MakeFindingSink();
  Connect(*sink.Get());
  EXPECT_TRUE(Check(document));
  EXPECT_EQ(std::ranges::count(sink->progress, static_cast<double>(document.size())), 2);
  EXPECT_GE(sink->progress.size(), 6U);
  EXPECT_EQ(sink->rules, kEachSeverity);

  // A handler may end the check before anything is found.
  sink->rules.clear();
  sink->on_progress = [&] {
    EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_BytesRead), sink->progress.back());
    return checker_->AbortChecking();
  };
  EXPECT_FALSE(CheckAgain());
  EXPECT_EQ(FailureNumber(), ReadingAborted);
  EXPECT_TRUE(sink->rules.empty());
  sink->on_progress = [] { return static_cast<HRESULT>(0x800A000B); };
  EXPECT_FALSE(CheckAgain());
  EXPECT_EQ(FailureNumber(), 11);
  EXPECT_EQ(FailureText(), L"Divis\x00E3o por zero");
}

TEST_F(CheckerFacesTest, ACheckInsideAnEventIsRefused) {
  const ComPtr<FindingSink> sink = MakeFindingSink();
  sink->on_finding = [&](_Finding&) {
    EXPECT_FALSE(CheckAgain());
    EXPECT_EQ(FailureNumber(), -2147221500);
    return S_OK;
  };
  Connect(*sink.Get());
  EXPECT_TRUE(Check(FileOfEachSeverity()));
  EXPECT_EQ(Rules(), kEachSeverity);
  EXPECT_EQ(FailureNumber(), 0);
}

TEST_F(CheckerFacesTest, TheLastReferenceMayGoInAnEvent) {
  const ComPtr<FindingSink> sink = MakeFindingSink();
  sink->on_finding = [&](_Finding&) {
    checker_.Reset();
    return S_OK;
  };
  Connect(*sink.Get());
  ASSERT_EQ(checker_->put_AuditFileName(Bstr(Wide(folder_.Write("saft.xml", FileOfEachSeverity())))), S_OK);
  _AuditFileChecker* checker = checker_.Get();
  VARIANT_BOOL judged = VARIANT_FALSE;
  EXPECT_EQ(checker->CheckAuditFile(&judged), S_OK);
  EXPECT_EQ(judged, VARIANT_TRUE);
  EXPECT_EQ(sink->rules, kEachSeverity);
  EXPECT_EQ(References(sink.Get()), 1U);
}

TEST_F(CheckerFacesTest, TellsItsEventInterface) {
  ComPtr<IProvideClassInfo2> information;
  ASSERT_EQ(checker_.As(&information), S_OK);
  GUID id;
  EXPECT_EQ(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
  EXPECT_EQ(id, __uuidof(__AuditFileChecker));
  ComPtr<IConnectionPointContainer> container;
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(checker_.As(&container), S_OK);
  EXPECT_TRUE(SameObject(container.Get(), checker_.Get()));
  EXPECT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileStreamer), &point), CONNECT_E_NOCONNECTION);
}

TEST_F(CheckerFacesTest, OfARuleSomeAreToldAndAllAreCounted) {
  CleanFile file;
  for (int i = 0; i < 25; ++i) file = file.Twice("Transaction/Line[3]");
  const std::string document = file.Text();
  const auto told = [&] {
    EXPECT_TRUE(Check(document));
    EXPECT_EQ(CountOf(L"GL-RECORD"), 25);
    const std::vector<std::wstring> rules = Rules();
    return std::ranges::count(rules, L"GL-RECORD");
  };
  EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_MostFindings), 20);
  EXPECT_EQ(told(), 20);
  ASSERT_EQ(checker_->put_MostFindings(2), S_OK);
  EXPECT_EQ(told(), 2);
  ASSERT_EQ(checker_->put_MostFindings(0), S_OK);
  EXPECT_EQ(told(), 25);
  EXPECT_EQ(checker_->put_MostFindings(-1), kInvalidCall);
  EXPECT_EQ(ValueFrom(*checker_.Get(), &_AuditFileChecker::get_MostFindings), 0);
}

TEST_F(CheckerFacesTest, TheSeverityOfARuleIsSet) {
  const Bstr id(L"HDR-PERIOD");
  Severities severity{};
  ASSERT_EQ(checker_->get_Severity(id, &severity), S_OK);
  EXPECT_EQ(severity, severityError);
  ASSERT_EQ(checker_->put_Severity(id, severityOff), S_OK);
  ASSERT_EQ(checker_->get_Severity(id, &severity), S_OK);
  EXPECT_EQ(severity, severityOff);
  Check(FileOfEachSeverity());
  EXPECT_EQ(Rules(), std::vector<std::wstring>{L"GL-RECORD"});

  for (const LONG number : {-1L, 4L, 256L}) {
    EXPECT_EQ(checker_->put_Severity(id, static_cast<Severities>(number)), kInvalidCall);
  }
  const Bstr unknown(L"GL-NOTHING");
  EXPECT_EQ(checker_->put_Severity(unknown, severityOff), kInvalidCall);
  EXPECT_EQ(checker_->get_Severity(unknown, &severity), kInvalidCall);
  EXPECT_EQ(TakeErrorInfo().description, L"Chamada ou argumento inv\x00E1lido (GL-NOTHING).");
  LONG count = 5;
  EXPECT_EQ(checker_->CountOf(unknown, &count), kInvalidCall);
  EXPECT_EQ(count, 0);
}

TEST_F(CheckerFacesTest, KeysArePemTexts) {
  EXPECT_EQ(checker_->AddPublicKey(Bstr(Wide(kKey)), 2), S_OK);
  EXPECT_EQ(checker_->AddPublicKey(Bstr(L"-----BEGIN PUBLIC KEY-----"), 2), kInvalidCall);
  EXPECT_NE(TakeErrorInfo().description, L"");
  EXPECT_EQ(checker_->AddPublicKey(nullptr, 0), kInvalidCall);
  EXPECT_EQ(Call(checker_.Get(), L"AddPublicKey", {Variant(Wide(kKey).c_str())}).result, S_OK);
  EXPECT_EQ(Call(checker_.Get(), L"AddPublicKey", {Variant(Wide(kKey).c_str()), Variant(1)}).result, S_OK);
}

TEST_F(CheckerFacesTest, RulesAreToldInTheLanguageThatIsSet) {
  const auto all = zevo::AuditFileChecker::Rules();
  for (const auto& [language, place] : {std::pair(languagePortuguese, 0), std::pair(languageEnglish, 1)}) {
    ASSERT_EQ(checker_->put_Language(language), S_OK);
    const auto collection = ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_Rules);
    const std::vector<ComPtr<_RuleInfo>> rules = ItemsOf<_RuleInfo>(*collection.Get());
    ASSERT_EQ(rules.size(), all.size());
    for (size_t i = 0; i < all.size(); ++i) {
      const auto expect_text = [&](const wchar_t* member, std::string_view text) {
        EXPECT_EQ(component::TextOf(V_BSTR(&*Get(rules[i].Get(), member).value)), text);
      };
      expect_text(L"Id", all[i].id);
      expect_text(L"Title", all[i].title[place]);
      expect_text(L"Explanation", all[i].explanation[place]);
      expect_text(L"Source", all[i].source);
      EXPECT_EQ(Get(rules[i].Get(), L"Severity").value.Number(), static_cast<LONG>(all[i].severity));
    }
  }
}

TEST_F(CheckerFacesTest, ARuleIsFoundByPositionAndByIdentifier) {
  const auto rules = ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_Rules);
  EXPECT_TRUE(SameObject(rules.Get(), ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_Rules).Get()));
  ComPtr<_RuleInfo> first;
  ASSERT_EQ(rules->get_Item(*Variant(1), first.GetAddressOf()), S_OK);
  ComPtr<_RuleInfo> same;
  ASSERT_EQ(rules->get_Item(*Variant(TextFrom(*first.Get(), &_RuleInfo::get_Id)), same.GetAddressOf()), S_OK);
  EXPECT_TRUE(SameObject(first.Get(), same.Get()));
  const DISPID member = IdOf(checker_.Get(), L"Rules");
  const Variant balance = Invoke(checker_.Get(), member, DISPATCH_PROPERTYGET, {Variant(L"GL-BALANCE")}).value;
  EXPECT_EQ(Get(balance.Object(), L"Id").value.Text(), L"GL-BALANCE");
  ComPtr<_RuleInfo> none;
  EXPECT_EQ(rules->get_Item(*Variant(L"GL-NOTHING"), none.GetAddressOf()), kInvalidCall);
  EXPECT_EQ(rules->get_Item(*Variant(0), none.GetAddressOf()), kSubscriptOutOfRange);
  EXPECT_EQ(
      rules->get_Item(*Variant(ValueFrom(*rules.Get(), &_RuleInfoCollection::get_Count) + 1), none.GetAddressOf()),
      kSubscriptOutOfRange);
  // What a host holds stays in the language that it was asked for in.
  const std::wstring title = TextFrom(*first.Get(), &_RuleInfo::get_Title);
  ASSERT_EQ(checker_->put_Language(languageEnglish), S_OK);
  EXPECT_FALSE(SameObject(rules.Get(), ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_Rules).Get()));
  EXPECT_EQ(TextFrom(*first.Get(), &_RuleInfo::get_Title), title);
}

TEST_F(CheckerFacesTest, FindingsHavePositionsAndNoKeys) {
  Check(FileOfEachSeverity());
  const auto findings = Collection();
  EXPECT_EQ(ValueFrom(*findings.Get(), &_FindingCollection::get_Count), 3);
  ComPtr<_Finding> finding;
  ASSERT_EQ(findings->get_Item(*Variant(3), finding.GetAddressOf()), S_OK);
  EXPECT_EQ(TextFrom(*finding.Get(), &_Finding::get_Rule), L"GL-RECORD");
  EXPECT_EQ(findings->get_Item(*Variant(4), finding.GetAddressOf()), kSubscriptOutOfRange);
  EXPECT_EQ(findings->get_Item(*Variant(0), finding.GetAddressOf()), kSubscriptOutOfRange);
  EXPECT_EQ(findings->get_Item(*Variant(-1), finding.GetAddressOf()), kSubscriptOutOfRange);
  EXPECT_EQ(findings->get_Item(*Variant(L"GL-RECORD"), finding.GetAddressOf()), kInvalidCall);
  const DISPID member = IdOf(checker_.Get(), L"Findings");
  const Variant third = Invoke(checker_.Get(), member, DISPATCH_PROPERTYGET, {Variant(3)}).value;
  EXPECT_EQ(Get(third.Object(), L"Rule").value.Text(), L"GL-RECORD");
}

TEST_F(CheckerFacesTest, WhatWasFoundStaysWhatItIs) {
  Check(FileOfEachSeverity());
  const auto findings = Collection();
  EXPECT_TRUE(SameObject(findings.Get(), Collection().Get()));
  const ComPtr<_Finding> finding = Findings()[2];
  EXPECT_TRUE(Check(CleanFile().Text()));
  EXPECT_EQ(Findings().size(), 0U);
  EXPECT_EQ(ValueFrom(*findings.Get(), &_FindingCollection::get_Count), 3);
  checker_.Reset();
  EXPECT_EQ(ItemsOf<_Finding>(*findings.Get()).size(), 3U);
  EXPECT_EQ(TextFrom(*finding.Get(), &_Finding::get_Message), kRepeated);
}

TEST_F(CheckerFacesTest, EnumerationsAreThoseOfTheLibrary) {
  constexpr std::pair<int, zevo::Severity> kSeverities[] = {{severityOff, Severity::kOff},
                                                            {severityInformation, Severity::kInformation},
                                                            {severityWarning, Severity::kWarning},
                                                            {severityError, Severity::kError}};
  for (const auto& [in_type_library, in_library] : kSeverities) {
    EXPECT_EQ(in_type_library, static_cast<int>(in_library));
  }
  constexpr std::pair<int, CheckVerdict> kVerdicts[] = {{verdictClean, CheckVerdict::kClean},
                                                        {verdictWarnings, CheckVerdict::kWarnings},
                                                        {verdictErrors, CheckVerdict::kErrors},
                                                        {verdictNotJudged, CheckVerdict::kNotJudged}};
  for (const auto& [in_type_library, in_library] : kVerdicts) {
    EXPECT_EQ(in_type_library, static_cast<int>(in_library));
  }
}

TEST_F(CheckerFacesTest, CountsAreOfEachSeverity) {
  EXPECT_EQ(CountOfSeverity(L"HDR-PERIOD", severityWarning), 0);
  EXPECT_TRUE(Check(FileOfEachSeverity()));
  EXPECT_EQ(CountOf(L"HDR-PERIOD"), 2);
  EXPECT_EQ(CountOfSeverity(L"HDR-PERIOD", severityWarning), 1);
  EXPECT_EQ(CountOfSeverity(L"HDR-PERIOD", severityInformation), 1);
  EXPECT_EQ(CountOfSeverity(L"HDR-PERIOD", severityError), 0);
  EXPECT_EQ(CountOfSeverity(L"GL-RECORD", severityError), 1);
  LONG count = -1;
  EXPECT_EQ(checker_->CountOfSeverity(Bstr(L"none"), severityError, &count), kInvalidCall);
}

TEST_F(CheckerFacesTest, RecordsThatWereJudgedAreCounted) {
  EXPECT_EQ(RecordsOf(L"Invoice"), 0);
  EXPECT_TRUE(Check(CleanFile().Text()));
  EXPECT_EQ(RecordsOf(L"Invoice"), 3);
  EXPECT_EQ(RecordsOf(L"Customer"), 2);
  EXPECT_EQ(RecordsOf(L"header"), 1);
  LONG records = -1;
  EXPECT_EQ(checker_->RecordsOf(Bstr(L"Line"), &records), kInvalidCall);
  EXPECT_EQ(checker_->RecordsOf(nullptr, &records), kInvalidCall);
}

TEST_F(CheckerFacesTest, FailuresAreKeptAndNotRaised) {
  EXPECT_FALSE(CheckAgain());
  EXPECT_EQ(FailureNumber(), -2147221503);
  ASSERT_EQ(checker_->put_AuditFileName(Bstr(Wide(folder_.Path("none.xml")))), S_OK);
  EXPECT_FALSE(CheckAgain());
  EXPECT_EQ(FailureNumber(), -2147221502);
  EXPECT_EQ(Findings().size(), 0U);

  EXPECT_FALSE(Check("<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.04_01\"/>"));
  EXPECT_EQ(FailureNumber(), -2147220903);
  EXPECT_EQ(Rules(), std::vector<std::wstring>{L"VERSION"});
  EXPECT_EQ(Verdict(), verdictNotJudged);
  EXPECT_EQ(CountOf(L"VERSION"), 1);

  // What was found before the file breaks off stands.
  const std::string document = FileOfEachSeverity();
  EXPECT_FALSE(Check(std::string_view(document).substr(0, document.find("<SourceDocuments>"))));
  EXPECT_GT(FailureNumber(), 0);
  EXPECT_EQ(Rules(), kEachSeverity);
  EXPECT_EQ(Verdict(), verdictNotJudged);
}

TEST_F(CheckerFacesTest, TheSchemaMayBeAnother) {
  const std::wstring before = TextFrom(*checker_.Get(), &_AuditFileChecker::get_AuditFileSchema);
  const std::wstring schema = Wide(folder_.Write("schema.xsd", "<none/>"));
  ASSERT_EQ(checker_->put_AuditFileSchema(Bstr(schema)), S_OK);
  EXPECT_EQ(TextFrom(*checker_.Get(), &_AuditFileChecker::get_AuditFileSchema), schema);
  EXPECT_FALSE(Check(CleanFile().Text()));
  EXPECT_NE(FailureNumber(), 0);
  ASSERT_EQ(checker_->put_AuditFileSchema(Bstr(before)), S_OK);
  EXPECT_TRUE(CheckAgain());
}

// The way of scripts, by name.
TEST_F(CheckerFacesTest, MembersAreCalledByName) {
  IDispatch* const checker = checker_.Get();
  const std::string document = FileOfEachSeverity();
  EXPECT_EQ(Put(checker, L"AuditFileName", Variant(Wide(folder_.Write("saft.xml", document)))).result, S_OK);
  EXPECT_EQ(Put(checker, L"Language", Variant(languageEnglish)).result, S_OK);
  EXPECT_EQ(Put(checker, L"Language", Variant(7)).number, kInvalidCall);
  EXPECT_EQ(Put(checker, L"MostFindings", Variant(5)).result, S_OK);
  const DISPID severity = IdOf(checker, L"Severity");
  EXPECT_EQ(Invoke(checker, severity, DISPATCH_PROPERTYPUT, {Variant(L"HDR-PERIOD"), Variant(severityOff)}).result,
            S_OK);
  EXPECT_EQ(Invoke(checker, severity, DISPATCH_PROPERTYGET, {Variant(L"HDR-PERIOD")}).value.Number(), severityOff);
  EXPECT_EQ(Invoke(checker, severity, DISPATCH_PROPERTYPUT, {Variant(L"none"), Variant(severityOff)}).number,
            kInvalidCall);
  EXPECT_EQ(Invoke(checker, severity, DISPATCH_PROPERTYGET).result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_TRUE(Call(checker, L"CheckAuditFile").value.Flag());
  EXPECT_EQ(Get(checker, L"Verdict").value.Number(), verdictErrors);
  EXPECT_EQ(Call(checker, L"CountOf", {Variant(L"GL-RECORD")}).value.Number(), 1);
  EXPECT_EQ(Call(checker, L"CountOfSeverity", {Variant(L"GL-RECORD"), Variant(severityError)}).value.Number(), 1);
  EXPECT_EQ(Call(checker, L"CountOfSeverity", {Variant(L"GL-RECORD"), Variant(7)}).number, kInvalidCall);
  EXPECT_EQ(Call(checker, L"RecordsOf", {Variant(L"Invoice")}).value.Number(), 3);
  EXPECT_EQ(V_R8(&*Get(checker, L"BytesRead").value), static_cast<DOUBLE>(document.size()));
  const Variant findings = Get(checker, L"Findings").value;
  EXPECT_EQ(Get(findings.Object(), L"Count").value.Number(), 1);
  const Variant finding = Invoke(findings.Object(), DISPID_VALUE, DISPATCH_PROPERTYGET, {Variant(1)}).value;
  EXPECT_EQ(Get(finding.Object(), L"Message").value.Text(), kRepeatedInEnglish);
  EXPECT_EQ(Call(checker, L"MessageOf", {finding}).value.Text(), kRepeatedInEnglish);
  EXPECT_EQ(Invoke(findings.Object(), DISPID_NEWENUM, DISPATCH_PROPERTYGET).value.Type(), VT_UNKNOWN);
  EXPECT_EQ(Call(checker, L"AbortChecking").result, S_OK);
  EXPECT_EQ(Get(checker, L"AuditException").value.Object(), nullptr);
}

TEST_F(CheckerFacesTest, CallsWithoutAPlaceForTheAnswerAreRefused) {
  Check(FileOfEachSeverity());
  const Bstr id(L"GL-RECORD");
  const auto findings = Collection();
  const ComPtr<_Finding> finding = Findings()[0];
  EXPECT_EQ(checker_->CheckAuditFile(nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_AuditException(nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_AuditFileName(nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_AuditFileSchema(nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_Language(nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_MostFindings(nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_Severity(id, nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_BytesRead(nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_Verdict(nullptr), E_POINTER);
  EXPECT_EQ(checker_->CountOf(id, nullptr), E_POINTER);
  EXPECT_EQ(checker_->CountOfSeverity(id, severityError, nullptr), E_POINTER);
  EXPECT_EQ(checker_->RecordsOf(Bstr(L"Invoice"), nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_Findings(nullptr), E_POINTER);
  EXPECT_EQ(checker_->MessageOf(finding.Get(), nullptr), E_POINTER);
  EXPECT_EQ(checker_->get_Rules(nullptr), E_POINTER);
  EXPECT_EQ(findings->get_Item(*Variant(1), nullptr), E_POINTER);
  EXPECT_EQ(findings->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(findings->NewEnum(nullptr), E_POINTER);
  EXPECT_EQ(finding->get_Rule(nullptr), E_POINTER);
  EXPECT_EQ(finding->get_Severity(nullptr), E_POINTER);
  EXPECT_EQ(finding->get_Kind(nullptr), E_POINTER);
  EXPECT_EQ(finding->get_Line(nullptr), E_POINTER);
  EXPECT_EQ(finding->get_Offset(nullptr), E_POINTER);
  EXPECT_EQ(finding->get_Message(nullptr), E_POINTER);
  ComPtr<_RuleInfo> rule;
  const auto rules = ObjectFrom(*checker_.Get(), &_AuditFileChecker::get_Rules);
  ASSERT_EQ(rules->get_Item(*Variant(1), rule.GetAddressOf()), S_OK);
  EXPECT_EQ(rule->get_Title(nullptr), E_POINTER);
  EXPECT_EQ(rule->get_Explanation(nullptr), E_POINTER);
  // None of these calls checked again.
  EXPECT_TRUE(SameObject(findings.Get(), Collection().Get()));
}

}  // namespace
}  // namespace zevo::testing
