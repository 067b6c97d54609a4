// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_HOSTERRORHANDLERS_H_
#define ZEVO_PLATFORM_HOSTERRORHANDLERS_H_

struct _xmlError;  // NOLINT(bugprone-reserved-identifier): libxml2's name

namespace zevo {

/// Puts libxml2's error handlers of this thread, which the host may have set, aside for as long as it lives, and then
/// back. What libxml2 reports to nobody in particular, such as of regular expressions, goes nowhere meanwhile; else it
/// would be printed, or reach a host that knows nothing of it. To be destroyed by the thread that made it.
class HostErrorHandlers {
 public:
  HostErrorHandlers();
  HostErrorHandlers(const HostErrorHandlers&) = delete;
  HostErrorHandlers& operator=(const HostErrorHandlers&) = delete;
  ~HostErrorHandlers();

 private:
  void (*generic_)(void* context, const char* message, ...);
  void* generic_context_;
  void (*structured_)(void* context, _xmlError* error);
  void* structured_context_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_HOSTERRORHANDLERS_H_
