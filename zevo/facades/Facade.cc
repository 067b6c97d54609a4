// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/Facade.h>

#include <zevo/facades/ErrorRecording.h>
#include <zevo/platform/File.h>

#include <string>
#include <utility>

namespace zevo {

void Facade::Require(bool condition, Message message, std::string_view member) const {
  if (!condition) throw LibraryError(message, std::string(name_).append(".").append(member));
}

void Facade::RequireCreatable(bool isOpen, const std::string& fileName) const {
  constexpr std::string_view kMember = "CreateAuditFile";
  Require(!isOpen, Message::kAlreadyStarted, kMember);
  Require(!fileName.empty(), Message::kNoFileName, kMember);
  Require(!FileExists(fileName), Message::kFileExists, kMember);
}

void Facade::RequireOpenable(bool isOpen, const std::string& fileName, Input input) const {
  constexpr std::string_view kMember = "OpenAuditFile";
  Require(!isOpen, Message::kAlreadyStarted, kMember);
  RequireFile(fileName, input, kMember);
}

void Facade::RequireFile(const std::string& fileName, Input input, std::string_view member) const {
  Require(!fileName.empty(), Message::kNoFileName, member);
  if ((input == Input::kFileOrStandardInput && IsStandardInput(fileName)) || FileExists(fileName)) return;
  const std::string source = std::string(name_).append(".").append(member);
  if (!IsOutOfReach(fileName)) throw LibraryError(Message::kFileNotFound, source);
  constexpr int32_t kNumber = kErrorBase + static_cast<int32_t>(Message::kFileNotFound);
  std::string description(MessageText(kNumber));
  description.replace(description.size() - 1, 1, ": não há permissão para chegar a ").append(fileName).append(".");
  throw Error(kNumber, source, std::move(description));
}

void Facade::RecordError() noexcept { exception_ = zevo::RecordError(own_description_); }
void Facade::RecordError(const Error& error) noexcept { exception_ = zevo::RecordError(error, own_description_); }

}  // namespace zevo
