// SPDX-License-Identifier: Apache-2.0
#include <expat.h>

#include <array>
#include <fstream>
#include <memory>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Parses with handlers that do nothing. Expat does not know Windows-1252; of the sample's bytes, all mean what they
/// mean in the encoding that it is told instead.
class ExpatJob : public ReadingJob {
 public:
  using ReadingJob::ReadingJob;

 private:
  Tally Count(const std::string& name) override {
    ElementTally tally;
    Parse(
        name, &tally,
        [](void* data, const XML_Char* local, const XML_Char**) { static_cast<ElementTally*>(data)->Start(local); },
        [](void* data, const XML_Char*) { static_cast<ElementTally*>(data)->End(); },
        [](void* data, const XML_Char* text, int length) {
          static_cast<ElementTally*>(data)->Text({text, static_cast<size_t>(length)});
        });
    return tally.Found();
  }

  void Read(const std::string& name) override {
    Parse(
        name, nullptr, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {},
        [](void*, const XML_Char*, int) {});
  }

  static void Parse(const std::string& name, void* data, XML_StartElementHandler start, XML_EndElementHandler end,
                    XML_CharacterDataHandler text) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate("ISO-8859-1"),
                                                                              &XML_ParserFree);
    XML_SetUserData(parser.get(), data);
    XML_SetElementHandler(parser.get(), start, end);
    XML_SetCharacterDataHandler(parser.get(), text);
    std::ifstream stream(name, std::ios::binary);
    const auto buffer = std::make_unique<std::array<char, 65536>>();
    do {
      stream.read(buffer->data(), static_cast<std::streamsize>(buffer->size()));
      const XML_Status status =
          XML_Parse(parser.get(), buffer->data(), static_cast<int>(stream.gcount()), stream ? XML_FALSE : XML_TRUE);
      Require(status == XML_STATUS_OK, "not parsed");
    } while (stream);
  }
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<ExpatJob>(setting); }

}  // namespace zevo::bench
