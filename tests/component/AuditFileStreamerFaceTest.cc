// SPDX-License-Identifier: Apache-2.0
#include <olectl.h>
#include <zevo/adapters.h>
#include <zevo/component/Faces.h>

#include <algorithm>
#include <functional>

#include "tests/component/Com.h"
#include "tests/component/EventSink.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {
namespace {

using component::FaceFor;

class AuditFileStreamerFaceTest : public ::testing::Test {
 protected:
  AuditFileStreamerFaceTest() {
    SaveSampleFile(path_);
    EXPECT_EQ(streamer_->put_AuditFileName(Bstr(std::wstring(path_.begin(), path_.end()))), S_OK);
    VARIANT_BOOL opened = VARIANT_FALSE;
    EXPECT_EQ(streamer_->OpenAuditFile(&opened), S_OK);
    EXPECT_EQ(opened, VARIANT_TRUE);
    ComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(streamer_.As(&container), S_OK);
    EXPECT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileStreamer), &point_), S_OK);
  }

  DWORD Connect(EventSink& sink) {
    DWORD cookie = 0;
    EXPECT_EQ(point_->Advise(&sink, &cookie), S_OK);
    return cookie;
  }
  bool Read() {
    VARIANT_BOOL read = VARIANT_FALSE;
    EXPECT_EQ(streamer_->ReadAuditFile(VARIANT_TRUE, &read), S_OK);
    return read != VARIANT_FALSE;
  }
  long ErrorNumber() {
    ComPtr<_AuditException> exception;
    EXPECT_EQ(streamer_->get_AuditException(&exception), S_OK);
    LONG number = 0;
    if (exception) {
      EXPECT_EQ(exception->get_Number(&number), S_OK);
    }
    return number;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  ComPtr<_AuditFileStreamer> streamer_ = FaceFor(std::make_shared<zevo::AuditFileStreamer>());
  ComPtr<IConnectionPoint> point_;
};

TEST_F(AuditFileStreamerFaceTest, EveryRecordComesAsAnEvent) {
  const ComPtr<EventSink> sink = MakeSink();
  Connect(*sink.Get());
  Read();
  ASSERT_GE(sink->events.size(), 10U);
  EXPECT_EQ(sink->events.front(), L"Header _Header");
  EXPECT_EQ(std::ranges::count(sink->events, L"Customer _Customer"), 2);
  EXPECT_EQ(std::ranges::count(sink->events, L"Invoice _Invoice"), 2);
  EXPECT_EQ(std::ranges::count(sink->events, L"Journal _Journal"), 1);
  EXPECT_EQ(std::ranges::count(sink->events, L"SalesInvoices _SalesInvoices"), 1);
  // Its entries have a percentage without an amount.
  EXPECT_EQ(std::ranges::count(sink->events, L"TaxTable Nothing"), 1);
  EXPECT_EQ(sink->events.back(), L"finished");
}

TEST_F(AuditFileStreamerFaceTest, AbortFromAHandler) {
  const ComPtr<EventSink> sink = MakeSink();
  sink->on_entity = [&](const std::wstring&, IDispatch**) {
    if (sink->events.size() == 3) {
      EXPECT_EQ(streamer_->AbortReading(), S_OK);
    }
    return S_OK;
  };
  Connect(*sink.Get());
  EXPECT_FALSE(Read());
  EXPECT_EQ(sink->events.size(), 3U);
  EXPECT_EQ(ErrorNumber(), ReadingAborted);
}

TEST_F(AuditFileStreamerFaceTest, AnErrorOfAHandlerEndsTheReading) {
  const ComPtr<EventSink> sink = MakeSink();
  sink->on_entity = [&](const std::wstring&, IDispatch**) { return static_cast<HRESULT>(0x800A000B); };
  Connect(*sink.Get());
  EXPECT_FALSE(Read());
  EXPECT_EQ(sink->events.size(), 1U);
  EXPECT_EQ(ErrorNumber(), 11);
  ComPtr<_AuditException> exception;
  streamer_->get_AuditException(&exception);
  Bstr source;
  Bstr description;
  exception->get_Source(source.Receive());
  exception->get_Description(description.Receive());
  EXPECT_EQ(source.Text(), L"handler");
  EXPECT_EQ(description.Text(), L"Divis\x00E3o por zero");
}

TEST_F(AuditFileStreamerFaceTest, ASinkWithoutTheMemberIsPassedOver) {
  const ComPtr<EventSink> sink = MakeSink();
  sink->on_entity = [&](const std::wstring&, IDispatch**) { return DISP_E_MEMBERNOTFOUND; };
  Connect(*sink.Get());
  Read();
  EXPECT_EQ(sink->events.back(), L"finished");
}

TEST_F(AuditFileStreamerFaceTest, AHandlerMayPutAnotherObjectInTheRecordsPlace) {
  const ComPtr<EventSink> sink = MakeSink();
  const ComPtr<_Header> other = FaceFor(std::make_shared<zevo::Header>());
  sink->on_entity = [&](const std::wstring&, IDispatch** entity) {
    if (*entity != nullptr) (*entity)->Release();
    other.CopyTo(reinterpret_cast<_Header**>(entity));
    return S_OK;
  };
  Connect(*sink.Get());
  Read();
  EXPECT_EQ(sink->events.back(), L"finished");
  EXPECT_EQ(References(other.Get()), 1U);
}

TEST_F(AuditFileStreamerFaceTest, ASinkMayDisconnectItselfAndOthersInAnEvent) {
  const ComPtr<EventSink> first = MakeSink();
  const ComPtr<EventSink> second = MakeSink();
  DWORD first_cookie = Connect(*first.Get());
  DWORD second_cookie = Connect(*second.Get());
  first->on_entity = [&](const std::wstring&, IDispatch**) {
    EXPECT_EQ(point_->Unadvise(std::exchange(first_cookie, 0)), S_OK);
    EXPECT_EQ(point_->Unadvise(std::exchange(second_cookie, 0)), S_OK);
    return S_OK;
  };
  Read();
  EXPECT_EQ(first->events.size(), 1U);
  // Who was connected as the event began still receives it.
  EXPECT_EQ(second->events.size(), 1U);
  EXPECT_EQ(References(first.Get()), 1U);
  EXPECT_EQ(References(second.Get()), 1U);
}

TEST_F(AuditFileStreamerFaceTest, ASinkMayConnectAnotherInAnEvent) {
  const ComPtr<EventSink> first = MakeSink();
  const ComPtr<EventSink> second = MakeSink();
  first->on_entity = [&](const std::wstring& name, IDispatch**) {
    if (name == L"Header") Connect(*second.Get());
    return S_OK;
  };
  Connect(*first.Get());
  Read();
  EXPECT_EQ(second->events.size(), first->events.size() - 1);
}

TEST_F(AuditFileStreamerFaceTest, TheLastReferenceMayGoInAnEvent) {
  const ComPtr<EventSink> sink = MakeSink();
  sink->on_entity = [&](const std::wstring&, IDispatch**) {
    point_.Reset();
    streamer_.Reset();
    return S_OK;
  };
  Connect(*sink.Get());
  _AuditFileStreamer* streamer = streamer_.Get();
  VARIANT_BOOL read = VARIANT_FALSE;
  EXPECT_EQ(streamer->ReadAuditFile(VARIANT_TRUE, &read), S_OK);
  EXPECT_EQ(sink->events.back(), L"finished");
  EXPECT_EQ(References(sink.Get()), 1U);
}

TEST_F(AuditFileStreamerFaceTest, ReadsInsideAnEventFail) {
  const ComPtr<EventSink> sink = MakeSink();
  bool inner = true;
  sink->on_entity = [&](const std::wstring& name, IDispatch**) {
    if (name == L"Header") inner = Read();
    return S_OK;
  };
  Connect(*sink.Get());
  Read();
  EXPECT_FALSE(inner);
}

TEST_F(AuditFileStreamerFaceTest, WithoutSinksItReadsAllTheSame) {
  Read();
  EXPECT_EQ(ErrorNumber(), 0);
}

TEST_F(AuditFileStreamerFaceTest, ConnectionsAreThoseOfTheContract) {
  ComPtr<IConnectionPointContainer> container;
  ASSERT_EQ(streamer_.As(&container), S_OK);
  ComPtr<IConnectionPoint> other;
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, &other), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(container->FindConnectionPoint(__uuidof(__AuditFileStreamer), nullptr), E_POINTER);
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(&points), S_OK);
  EXPECT_EQ(container->EnumConnectionPoints(nullptr), E_POINTER);
  ASSERT_EQ(points->Next(1, &other, nullptr), S_OK);
  EXPECT_TRUE(SameObject(other.Get(), point_.Get()));
  ComPtr<IConnectionPoint> none;
  EXPECT_EQ(points->Next(1, &none, nullptr), S_FALSE);

  IID id;
  EXPECT_EQ(point_->GetConnectionInterface(&id), S_OK);
  EXPECT_EQ(id, __uuidof(__AuditFileStreamer));
  EXPECT_EQ(point_->GetConnectionInterface(nullptr), E_POINTER);
  ComPtr<IConnectionPointContainer> owner;
  EXPECT_EQ(point_->GetConnectionPointContainer(&owner), S_OK);
  EXPECT_TRUE(SameObject(owner.Get(), streamer_.Get()));
  EXPECT_EQ(point_->GetConnectionPointContainer(nullptr), E_POINTER);
  EXPECT_EQ(point_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  void* not_there = nullptr;
  EXPECT_EQ(point_->QueryInterface(IID_IDispatch, &not_there), E_NOINTERFACE);

  const ComPtr<EventSink> sink = MakeSink();
  DWORD cookie = 0;
  EXPECT_EQ(point_->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point_->Advise(sink.Get(), nullptr), E_POINTER);
  ComPtr<IUnknown> no_sink(points.Get());
  EXPECT_EQ(point_->Advise(no_sink.Get(), &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(point_->Unadvise(77), CONNECT_E_NOCONNECTION);
  const DWORD first = Connect(*sink.Get());
  const DWORD second = Connect(*sink.Get());
  EXPECT_NE(first, second);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point_->EnumConnections(&connections), S_OK);
  EXPECT_EQ(point_->EnumConnections(nullptr), E_POINTER);
  CONNECTDATA data[2];
  ULONG fetched = 0;
  ASSERT_EQ(connections->Next(2, data, &fetched), S_OK);
  EXPECT_EQ(data[1].dwCookie, second);
  EXPECT_TRUE(SameObject(data[0].pUnk, sink.Get()));
  data[0].pUnk->Release();
  data[1].pUnk->Release();
  EXPECT_EQ(point_->Unadvise(first), S_OK);
  EXPECT_EQ(point_->Unadvise(first), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point_->Unadvise(second), S_OK);
}

TEST_F(AuditFileStreamerFaceTest, TellsItsEventInterface) {
  ComPtr<IProvideClassInfo2> information;
  ASSERT_EQ(streamer_.As(&information), S_OK);
  GUID id;
  EXPECT_EQ(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
  EXPECT_EQ(id, __uuidof(__AuditFileStreamer));
  EXPECT_EQ(information->GetGUID(99, &id), E_INVALIDARG);
}

}  // namespace
}  // namespace zevo::testing
