// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <libxml/globals.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlregexp.h>
#include <zevo/platform/HostErrorHandlers.h>

#include <thread>

namespace zevo {
namespace {

int g_generic = 0;
int g_structured = 0;

void CountGeneric(void*, const char*, ...) { ++g_generic; }
void CountStructured(void*, xmlErrorPtr) { ++g_structured; }

// libxml2 has nobody to report this to but the thread's handlers.
void FailUnheard() { EXPECT_EQ(xmlRegexpCompile(BAD_CAST "["), nullptr); }

TEST(HostErrorHandlersTest, AreNotCalledWhilePutAsideAndAreThereAgainAfterwards) {
  std::thread([] {
    int generic = 0;
    int structured = 0;
    xmlSetGenericErrorFunc(&generic, &CountGeneric);
    xmlSetStructuredErrorFunc(&structured, &CountStructured);
    {
      const HostErrorHandlers aside;
      FailUnheard();
    }
    EXPECT_EQ(g_generic + g_structured, 0);
    EXPECT_EQ(xmlGenericError, &CountGeneric);
    EXPECT_EQ(xmlGenericErrorContext, &generic);
    EXPECT_EQ(xmlStructuredError, &CountStructured);
    EXPECT_EQ(xmlStructuredErrorContext, &structured);
    FailUnheard();
    EXPECT_EQ(g_generic, 0);
    EXPECT_GT(g_structured, 0);
  }).join();
}

TEST(HostErrorHandlersTest, ThoseOfAThreadThatSetNoneAreLibxml2s) {
  std::thread([] {
    xmlSetGenericErrorFunc(nullptr, nullptr);
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    const xmlGenericErrorFunc generic = xmlGenericError;
    void* const context = xmlGenericErrorContext;
    ::testing::internal::CaptureStderr();
    try {
      const HostErrorHandlers aside;
      FailUnheard();
      throw 1;
    } catch (int) {
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(xmlGenericError, generic);
    EXPECT_EQ(xmlGenericErrorContext, context);
    EXPECT_EQ(xmlStructuredError, nullptr);
    EXPECT_EQ(xmlStructuredErrorContext, nullptr);
  }).join();
}

}  // namespace
}  // namespace zevo
