// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/HostErrorHandlers.h>

#include <libxml/globals.h>
#include <libxml/xmlerror.h>

namespace zevo {

namespace {

void IgnoreMessage(void*, const char*, ...) {}
void IgnoreError(void*, xmlErrorPtr) {}

}  // namespace

HostErrorHandlers::HostErrorHandlers()
    : generic_(xmlGenericError),
      generic_context_(xmlGenericErrorContext),
      structured_(xmlStructuredError),
      structured_context_(xmlStructuredErrorContext) {
  xmlGenericError = &IgnoreMessage;
  xmlStructuredError = &IgnoreError;
}

HostErrorHandlers::~HostErrorHandlers() {
  xmlGenericError = generic_;
  xmlGenericErrorContext = generic_context_;
  xmlStructuredError = structured_;
  xmlStructuredErrorContext = structured_context_;
}

}  // namespace zevo
