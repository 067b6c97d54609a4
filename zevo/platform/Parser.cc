// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Parser.h>

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/NameNumbers.h>
#include <zevo/platform/Text.h>
#include <zevo/platform/TextDecoder.h>

#include <algorithm>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <vector>

namespace zevo {
namespace {

const char* Text(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

std::string_view View(const xmlChar* text, int length) {
  return std::string_view(Text(text), static_cast<size_t>(length));
}

// libxml2 makes a document for the entities that a file declares, and forgets it where the file breaks off.
struct FreeContext {
  void operator()(xmlParserCtxt* context) const {
    xmlFreeDoc(context->myDoc);
    xmlFreeParserCtxt(context);
  }
};

// Makes libxml2 ready for use, once in the process. The library never shuts it down: the host may use it too.
void InitialiseXml() {
  static std::once_flag once;
  std::call_once(once, xmlInitParser);
}

// What the system says of a file that it does not give.
XmlProblem Unreadable(const Error& error) {
  return {.number = error.Number(), .reason = error.Description(), .fault = XmlProblem::Fault::kUnreadable};
}

constexpr std::string_view kTagTooLong = "Uma etiqueta tem mais de 64 KiB";

// Thrown where a limit is passed, and caught before libxml2 gets to see it.
struct BeyondLimit {
  std::string_view reason;
};

// One run over one file: stands between libxml2's callbacks and the handler, keeps the limits and the first error.
class Run {
 public:
  Run(TextDecoder& decoder, ParserHandler& handler, const ProblemSink& violated, uint64_t& bytesRead)
      : decoder_(decoder), handler_(handler), violated_(violated), bytes_read_(bytesRead) {}

  std::optional<XmlProblem> Parse(xmlSchemaValidCtxt* validation) {
    xmlSAXHandler callbacks = Callbacks();
    context_.reset(xmlCreateIOParserCtxt(&callbacks, this, &Run::Read, nullptr, this, XML_CHAR_ENCODING_UTF8));
    if (!context_) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
    context_->_private = this;
    // The bytes are UTF-8 by now, whatever the declaration or their beginning says.
    context_->encoding = xmlStrdup(BAD_CAST "UTF-8");
    xmlCtxtUseOptions(context_.get(), XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
    xmlSchemaSAXPlugPtr plug = nullptr;
    validating_ = validation != nullptr;
    if (validating_) {
      // Deeper elements are refused.
      open_.reserve(size_t{2} * ParserLimits::kDepth);
      plug = xmlSchemaSAXPlug(validation, &context_->sax, &context_->userData);
      if (plug == nullptr) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
      context_->sax->serror = &Run::OnParserError;
      xmlSchemaSetValidStructuredErrors(validation, &Run::OnViolation, this);
    }
    xmlParseDocument(context_.get());
    if (plug != nullptr) {
      EndOpenElements();
      xmlSchemaSAXUnplug(plug);
    }
    if (context_->wellFormed == 0) FailAsIllFormed(XML_ERR_INTERNAL_ERROR, "O ficheiro não é XML bem formado");
    if (thrown_) std::rethrow_exception(thrown_);
    return problem_;
  }

 private:
  static Run& Of(void* self) { return *static_cast<Run*>(self); }

  static xmlSAXHandler Callbacks() {
    xmlSAXHandler sax{};
    sax.initialized = XML_SAX2_MAGIC;
    sax.startElementNs = &Run::OnStartElement;
    sax.endElementNs = &Run::OnEndElement;
    sax.characters = [](void* self, const xmlChar* text, int length) { Of(self).OnText(text, length, false); };
    sax.ignorableWhitespace = sax.characters;
    sax.cdataBlock = [](void* self, const xmlChar* text, int length) { Of(self).OnText(text, length, true); };
    sax.comment = [](void* self, const xmlChar* text) {
      Of(self).Guard([&](Run& run, size_t) { run.handler_.Comment(Text(text)); });
    };
    sax.processingInstruction = [](void* self, const xmlChar* target, const xmlChar* data) {
      Of(self).Guard([&](Run& run, size_t) {
        run.CountOtherName(Text(target));
        run.handler_.Instruction(Text(target), data == nullptr ? "" : Text(data));
      });
    };
    sax.startDocument = [](void* self) {
      Of(self).Guard([](Run& run, size_t) {
        if (run.context_->standalone == 1) run.handler_.Standalone();
      });
    };
    sax.internalSubset = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
      Of(self).Refuse("O ficheiro tem uma declaração DOCTYPE, que não é aceite");
    };
    sax.serror = &Run::OnParserError;
    return sax;
  }

  // A validation frees what it keeps of an element only at the element's end, which a parse that stops does not reach.
  void EndOpenElements() {
    while (!open_.empty()) {
      const OpenElement element = open_.back();
      context_->sax->endElementNs(context_->userData, element.local, element.prefix, element.uri);
    }
  }

  // Runs what may throw between libxml2's frames, which no exception may cross, with the position of the parser.
  template <class Action>
  void Guard(Action&& action) {
    if (stopped_) return;
    const size_t position = Position();
    try {
      action(*this, position);
    } catch (const BeyondLimit& limit) {
      Refuse(limit.reason);
    } catch (...) {
      Keep(std::current_exception());
    }
    event_end_ = position;
  }

  static void OnStartElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri,
                             int namespaces, const xmlChar** namespaceTexts, int attributes, int,
                             const xmlChar** attributeTexts) {
    if (Of(self).validating_) Of(self).open_.push_back({local, prefix, uri});
    Of(self).Guard([&](Run& run, size_t position) {
      run.text_length_ = 0;
      if (position - run.event_end_ > ParserLimits::kStartTag) throw BeyondLimit{kTagTooLong};
      if (++run.depth_ > ParserLimits::kDepth) {
        throw BeyondLimit{"Os elementos estão encaixados em mais de 256 níveis"};
      }
      std::span<const ParsedAttribute> collected;
      if (namespaces + attributes > 0) {
        collected = run.Collect(namespaces, namespaceTexts, attributes, attributeTexts);
      }
      run.handler_.StartElement(run.Numbered(local, prefix), collected);
    });
  }

  // Keeps what a start tag declares and carries, as libxml2 tells it: rows of two and of five pointers.
  [[gnu::noinline]] std::span<const ParsedAttribute> Collect(int namespaces, const xmlChar** namespaceTexts,
                                                             int attributes, const xmlChar** attributeTexts) {
    attributes_.clear();
    attribute_texts_.clear();
    if (attributes > ParserLimits::kAttributes) throw BeyondLimit{"Uma etiqueta tem mais de 256 atributos"};
    CheckDeclarations();
    for (ptrdiff_t i = 0; i < namespaces; ++i) {
      const xmlChar* const* row = namespaceTexts + i * 2;
      const char* const prefix = Text(row[0]);
      const char* const uri = Text(row[1]);
      if (prefix != nullptr) CountOtherName(prefix);
      if (uri != nullptr) CountOtherName(uri);
      const ParsedName name = prefix == nullptr ? ParsedName{"xmlns", nullptr} : ParsedName{prefix, "xmlns"};
      attributes_.push_back({name, uri == nullptr ? "" : WithAmpersands(uri)});
    }
    for (ptrdiff_t i = 0; i < attributes; ++i) {
      const xmlChar* const* row = attributeTexts + i * 5;
      const std::string_view value = View(row[3], static_cast<int>(row[4] - row[3]));
      attributes_.push_back({Numbered(row[0], row[1]), WithAmpersands(value)});
    }
    return attributes_;
  }

  ParsedName Numbered(const xmlChar* local, const xmlChar* prefix) {
    const ParsedName name{Text(local), Text(prefix), names_.Of(Text(local), Text(prefix))};
    if (name.number > ParserLimits::kNames)
      throw BeyondLimit{"O ficheiro tem mais de 10 000 nomes de elementos e atributos"};
    return name;
  }

  void CountOtherName(const char* name) {
    if (other_names_.Of(name) <= ParserLimits::kOtherNames) return;
    throw BeyondLimit{"O ficheiro tem mais de 10 000 nomes de instruções, prefixos e espaços de nomes"};
  }

  // libxml2 counts two pointers for each declaration, also while it is still in the tag.
  void CheckDeclarations() {
    if (context_->nsNr <= 2 * ParserLimits::kDeclarations) return;
    throw BeyondLimit{"Mais de 64 declarações de espaços de nomes valem ao mesmo tempo"};
  }

  // In the value of an attribute libxml2 hands over an ampersand as a reference.
  std::string_view WithAmpersands(std::string_view value) {
    if (value.find('&') == std::string_view::npos) return value;
    return attribute_texts_.emplace_back(ReplaceAll(value, "&#38;", "&"));
  }

  static void OnEndElement(void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar*) {
    if (Of(self).validating_) Of(self).open_.pop_back();
    Of(self).Guard([&](Run& run, size_t) {
      run.text_length_ = 0;
      --run.depth_;
      run.handler_.EndElement({Text(local), Text(prefix)});
    });
  }

  void OnText(const xmlChar* text, int length, bool cdata) {
    Guard([&](Run& run, size_t) {
      run.text_length_ += static_cast<size_t>(length);
      if (run.text_length_ > ParserLimits::kText) {
        throw BeyondLimit{"Um texto tem mais de 10 milhões de bytes"};
      }
      cdata ? run.handler_.CData(View(text, length)) : run.handler_.Characters(View(text, length));
    });
  }

  // Delivers the next decoded bytes to the parser.
  static int Read(void* self, char* buffer, int size) {
    Run& run = Of(self);
    if (run.stopped_) return 0;
    if (run.context_) run.FollowColumn();
    int length = 0;
    try {
      // The parser asks for bytes in the middle of a tag as well: without this it would first read all of it.
      if (run.context_ && run.InTag() && run.delivered_ - run.event_end_ > ParserLimits::kStartTag + kReadAhead) {
        throw BeyondLimit{kTagTooLong};
      }
      if (run.context_) run.CheckDeclarations();
      length = static_cast<int>(run.decoder_.Read(buffer, static_cast<size_t>(size)));
      if (length == 0) run.ReportFault();
    } catch (const BeyondLimit& limit) {
      run.Refuse(limit.reason);
      return 0;
    } catch (const Error& error) {
      run.Keep(Unreadable(error));
      return 0;
    } catch (...) {
      run.Keep(std::current_exception());
      return 0;
    }
    run.bytes_read_ = run.decoder_.BytesTaken();
    run.delivered_ += static_cast<size_t>(length);
    return length;
  }

  bool InTag() const {
    switch (context_->instate) {
      case XML_PARSER_CONTENT:
      case XML_PARSER_START_TAG:
      case XML_PARSER_END_TAG:
      case XML_PARSER_ATTRIBUTE_VALUE:
        return true;
      default:
        return false;
    }
  }

  void ReportFault() {
    switch (decoder_.fault()) {
      case TextDecoder::Fault::kNone:
        return;
      case TextDecoder::Fault::kUnknownEncoding:
        return FailAsIllFormed(XML_ERR_UNSUPPORTED_ENCODING, "A codificação declarada não é suportada");
      case TextDecoder::Fault::kContradictoryEncoding:
        return FailAsIllFormed(XML_ERR_UNSUPPORTED_ENCODING,
                               "A codificação declarada contradiz a do início do ficheiro");
      case TextDecoder::Fault::kNul:
        return FailAsIllFormed(XML_ERR_INVALID_CHAR, "O carácter U+0000 não é permitido");
      case TextDecoder::Fault::kUndecodable:
        return FailAsIllFormed(XML_ERR_INVALID_ENCODING, "Bytes que a codificação não define");
    }
  }

  // A schema validation that listens in puts itself in front of the user data, so the run is found by the context.
  static void OnParserError(void*, xmlErrorPtr error) {
    auto* context = static_cast<xmlParserCtxt*>(error->ctxt);
    if (context != nullptr && context->_private != nullptr) {
      Of(context->_private).OnError(*error);
    }
  }

  void OnError(const xmlError& error) {
    // A namespace may have any name. libxml2 says this too where it had no memory to look whether the name is a URI.
    if (error.level < XML_ERR_ERROR || error.code == XML_WAR_NS_URI) return;
    FailAsIllFormed(error.code, ReasonOf(error));
  }

  static void OnViolation(void* self, xmlErrorPtr error) {
    Run& run = Of(self);
    if (error->level < XML_ERR_ERROR || run.stopped_) return;
    switch (error->code) {
      case XML_SCHEMAV_INTERNAL:
      case XML_ERR_NO_MEMORY:
        return run.Fail(error->code, ReasonOf(*error), XmlProblem::Fault::kSchema);
      default:
        return run.TellViolation(*error);
    }
  }

  void TellViolation(const xmlError& error) {
    try {
      if (violated_({.number = error.code,
                     .reason = std::string(ReasonOf(error)),
                     .fault = XmlProblem::Fault::kInvalid,
                     .place = Place()})) {
        return;
      }
      stopped_ = true;
    } catch (...) {
      Keep(std::current_exception());
    }
  }

  static std::string_view ReasonOf(const xmlError& error) { return error.message == nullptr ? "" : error.message; }

  void Refuse(std::string_view reason) { Fail(XML_ERR_USER_STOP, reason, XmlProblem::Fault::kRefused); }

  void FailAsIllFormed(int number, std::string_view reason) { Fail(number, reason, XmlProblem::Fault::kNotWellFormed); }

  [[gnu::cold]] void Fail(int number, std::string_view reason, XmlProblem::Fault fault) {
    try {
      if (number == XML_ERR_NO_MEMORY) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
      Keep({.number = number, .reason = std::string(reason), .fault = fault, .place = Place()});
    } catch (...) {
      Keep(std::current_exception());
    }
  }

  // The first failure is the one that is told. From then on events are dropped and the file seems to end: halting
  // libxml2 itself would free its buffers under calls that are still using them.
  void Keep(XmlProblem problem) {
    if (!std::exchange(stopped_, true)) problem_ = std::move(problem);
  }
  void Keep(std::exception_ptr thrown) {
    if (!std::exchange(stopped_, true)) thrown_ = std::move(thrown);
  }

  // Bytes of UTF-8 that the parser has taken in.
  size_t Position() const {
    const xmlParserInput* input = context_->input;
    return input == nullptr ? 0 : input->consumed + static_cast<size_t>(input->cur - input->base);
  }

  // libxml2 counts columns in 32 bits, and a file may be one line of many gigabytes. Called often enough, this sees
  // every time that the count begins anew.
  void FollowColumn() {
    const xmlParserInput* input = context_->input;
    if (input == nullptr) return;
    const auto column = static_cast<uint32_t>(input->col);
    if (input->line != column_line_) {
      column_line_ = input->line;
      column_base_ = 0;
    } else if (column < last_column_) {
      column_base_ += uint64_t{1} << 32;
    }
    last_column_ = column;
  }

  // Where the parser is or, when decoding stopped, the byte that stopped it.
  FilePlace Place() {
    const xmlParserInput* input = context_ ? context_->input : nullptr;
    if (input == nullptr) return {1, 1};
    FollowColumn();
    int64_t line = input->line;
    auto column = static_cast<int64_t>(column_base_ + last_column_);
    if (decoder_.fault() != TextDecoder::Fault::kNone) {
      // While the parser asks for bytes, its pointers may be into a buffer that has been replaced by a larger one.
      const xmlChar* const content = xmlBufContent(input->buf->buffer);
      const xmlChar* const end = content + xmlBufUse(input->buf->buffer);
      for (const xmlChar* c = content + (input->cur - input->base); c < end; ++c) {
        if (*c == '\n') {
          ++line;
          column = 1;
        } else if ((*c & 0xC0U) != 0x80) {
          ++column;
        }
      }
    }
    return {line, column};
  }

  static constexpr size_t kReadAhead = size_t{16} * 1024;

  TextDecoder& decoder_;
  ParserHandler& handler_;
  const ProblemSink& violated_;
  uint64_t& bytes_read_;
  std::unique_ptr<xmlParserCtxt, FreeContext> context_;
  NameNumbers names_;
  NameNumbers other_names_;
  std::vector<ParsedAttribute> attributes_;
  std::deque<std::string> attribute_texts_;
  struct OpenElement {
    const xmlChar* local;
    const xmlChar* prefix;
    const xmlChar* uri;
  };
  std::vector<OpenElement> open_;  // kept for a validation
  bool validating_ = false;
  int depth_ = 0;
  size_t text_length_ = 0;
  size_t delivered_ = 0;
  size_t event_end_ = 0;  // where the parser stood at the end of the last event
  int column_line_ = 0;   // the line of the columns below
  uint32_t last_column_ = 0;
  uint64_t column_base_ = 0;  // columns counted before the count began anew
  bool stopped_ = false;
  std::optional<XmlProblem> problem_;
  std::exception_ptr thrown_;
};

}  // namespace

std::optional<XmlProblem> Parser::Parse(ParserHandler& handler, _xmlSchemaValidCtxt* validation,
                                        const ProblemSink& violated) {
  InitialiseXml();
  bytes_read_ = 0;
  std::optional<InputFile> file;
  std::optional<TextDecoder> decoder;
  try {
    decoder.emplace(input_ != nullptr ? *input_ : file.emplace(file_));
  } catch (const Error& error) {
    return Unreadable(error);
  }
  return Run(*decoder, handler, violated, bytes_read_).Parse(validation);
}

}  // namespace zevo
