// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_TEXTSTREAM_H_
#define ZEVO_DAL_TEXTSTREAM_H_

#include <zevo/platform/File.h>
#include <zevo/platform/Serializer.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zevo {

/// A file written from front to back, in Windows-1252. Bytes are held back until there are enough of them: a write that
/// fails shows in a later operation, at the latest in Flush, and from then on in every one that writes.
class TextStream {
 public:
  TextStream();
  TextStream(const TextStream&) = delete;
  TextStream& operator=(const TextStream&) = delete;
  /// Closes the file.
  ~TextStream();

  const std::string& FileName() const { return file_name_; }
  void set_FileName(std::string_view value) { file_name_ = value; }
  bool IsOpen() const { return output_ != nullptr; }

  /// Deletes the file and opens it anew.
  void CreateStream();
  /// Opens the file, which is created or emptied.
  void OpenStream();
  /// Closes the file. Never raises: what must not be lost is flushed first.
  void CloseStream() noexcept;
  void WriteLine(std::string_view text);
  // These raise error 52 while the file is not open.
  void WriteChars(std::string_view text, Escapes escapes = Escapes::kNone);
  /// Writes a start tag, or an end tag.
  void WriteStartTag(std::string_view name) { WriteTag("<", name); }
  void WriteEndTag(std::string_view name) { WriteTag("</", name); }
  /// The same by the number of the name in a table.
  void WriteStartTag(const NameTable& names, uint32_t name) { Writer().WriteStartTag(names, name); }
  void WriteEndTag(const NameTable& names, uint32_t name) { Writer().WriteEndTag(names, name); }
  /// Writes an element with a text as most are: see Serializer. Gives false and has written nothing where it cannot, or
  /// the file is not open.
  bool WritePlainElement(const NameTable& names, uint32_t name, std::string_view text) {
    return IsOpen() && serializer_->WritePlainElement(names, name, text);
  }
  /// Raises the write that failed, if one did since the file was opened.
  void RequireWhole() const {
    if (IsOpen()) output_->RequireWhole();
  }
  /// Hands what is held back to the system.
  void Flush();
  /// Closes and deletes the file. Never raises; a file that is missing is no failure.
  void DeleteStream() noexcept;
  /// Renames the file on disk.
  void RenameStream(std::string_view newName);

 private:
  Serializer& Writer() const;
  void WriteTag(std::string_view start, std::string_view name);

  std::string file_name_;
  std::unique_ptr<OutputFile> output_;
  std::unique_ptr<Serializer> serializer_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_TEXTSTREAM_H_
