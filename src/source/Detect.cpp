#include <cstdint>
#include <cstring>

#include "diag/Quote.h"
#include "source/Load.h"

namespace zelvaro {
namespace {

constexpr Message emptyName{"self-name-empty", Severity::Notice, Head::None, args(),
                            bothLanguages("fname is empty.")};
constexpr Message bomNotRead{"self-bom-not-read", Severity::Notice, Head::None, args("name"),
                             bothLanguages("Error: Fail to open {name}.")};
constexpr Message bytesNotRead{"self-bytes-not-read", Severity::Notice, Head::None, args("name"),
                               bothLanguages("Fail to open {name}.")};
constexpr Message counted{"characters-counted", Severity::Notice, Head::None, args("ascii", "sjis", "non"),
                          bothLanguages("MoziKazu(ascii, sjis, non)=({ascii}, {sjis}, {non})")};
constexpr Message readingAs{"reading-as",
                            Severity::Notice,
                            Head::None,
                            args("name", "code"),
                            {.ja = "\n'{name}'    {code}", .en = "\n* Reading {name}   {code}"}};
constexpr Message reading{"reading",
                          Severity::Notice,
                          Head::None,
                          args("name"),
                          {.ja = "\n'{name}'     を読み込みます。 ", .en = "\n* Reading {name}"}};

/// The number of leading bytes below 0x7F, rounded down to a multiple of eight.
std::size_t asciiPrefix(std::string_view bytes) {
  constexpr std::uint64_t kOnes = 0x0101010101010101u;
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + i, 8);
    if (((word | (word + kOnes)) & (kOnes << 7)) != 0) break;
  }
  return i;
}

struct MoziCounts {
  std::size_t ascii = 0, sjis = 0, non = 0;
};

/// Counts by fixed ranges.  The lead bytes 0x98 to 0x9F are not among those of Shift-JIS here.
MoziCounts countMozi(std::string_view bytes) {
  MoziCounts n;
  while (!bytes.empty()) {
    const std::size_t ascii = asciiPrefix(bytes);
    n.ascii += ascii;
    bytes.remove_prefix(ascii);
    if (bytes.empty()) break;
    const auto c = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    if (c < 0x7F) {
      ++n.ascii;
    } else if ((c >= 0x80 && c <= 0x97) || (c >= 0xE0 && c <= 0xFC)) {
      ++n.sjis;
      if (!bytes.empty()) bytes.remove_prefix(1);
    } else {
      ++n.non;
    }
  }
  return n;
}

void setBom(MoziCodeData& code, int codePage, int length, const char* text, const char* name) {
  if (codePage != 0) code.CodePage = codePage;
  code.BomKazu = length;
  code.BomText = text;
  code.CodeName = name;
}

}  // namespace

std::string DetBOM(TShellData& sh, MoziCodeData& code, const std::string& name, const SourceBytes& bytes) {
  if (name.empty()) {
    sh.report(emptyName, 0);
    return {};
  }
  code.BomText.clear();
  if (!bytes) {
    sh.report(bomNotRead, 0, name);
    return {};
  }
  if (bytes->bytes.starts_with(kUtf8Mark)) {
    setBom(code, 65001, 3, "EFBBBF", "utf-8 with bom(EF BB BF)");
  } else if (bytes->bytes.starts_with(kUtf16LeMark)) {
    setBom(code, 1200, 2, "FFFE", "utf-16 le(FF FE)");
  } else if (bytes->bytes.starts_with(kUtf16BeMark)) {
    setBom(code, 1201, 2, "FEFF", "utf-16 be(FE FF)");
  } else {
    setBom(code, 0, 0, "", "utf-8 or sjis");
  }
  return code.BomText;
}

void Det_sjis(TShellData& sh, MoziCodeData& code, const std::string& name, const SourceBytes& bytes) {
  if (!bytes) {
    sh.report(bytesNotRead, 0, name);
    return;
  }
  const MoziCounts n = countMozi(bytes->bytes);
  sh.report(counted, 0, n.ascii, n.sjis, n.non);
  const bool sjis = n.non < 1;
  code.CodePage = sjis ? 932 : 65001;
  code.CodeName = sjis ? "sjis" : "utf-8";
}

void DetectEncoding(TShellData& sh, const LoadRequest& request, const SourceBytes& bytes) {
  const std::string& name = request.name;
  MoziCodeData& code = request.code;
  const bool hasMark = !DetBOM(sh, code, name, bytes).empty();
  if (!hasMark && request.reportsEncoding) Det_sjis(sh, code, name, bytes);
  if (request.reportsEncoding) {
    sh.report(readingAs, 0, name, code.CodeName);
  } else {
    sh.report(reading, 0, name);
  }
}

RowList rowsOfDetect() {
  return rows(emptyName, bomNotRead, bytesNotRead, counted, readingAs, reading);
}

}  // namespace zelvaro
