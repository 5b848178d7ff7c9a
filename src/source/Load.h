// From a typed name to the lines of a file: paths, detection of the encoding, the loaders.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "MoziCode/Utf.h"
#include "platform/Platform.h"
#include "source/Assembly.h"

namespace zelvaro {

/// What the detection found; read by the loaders.
struct MoziCodeData {
  int BomKazu = 0;       ///< length of the byte order mark: 3, 2 or 0
  std::string BomText;   ///< "EFBBBF", "FFFE", "FEFF" or empty
  int CodePage = 0;      ///< 1200, 1201, 65001 or 932; keeps its last value if nothing sets it
  std::string CodeName;  ///< the name that is reported to the user

  /// Of a source in UTF-16.
  ByteOrder byteOrder() const { return CodePage == 1200 ? ByteOrder::Little : ByteOrder::Big; }
};

/// A source file, read once for the detection and the loader; nothing if it cannot be opened.
using SourceBytes = std::optional<FileBytes>;

/// Trims a name, quotes it if it has blanks, and turns "/" into a backslash: the form in which names are
/// passed inside the program.  A quoted name stays quoted.
std::string NormalizePath(const std::string& name);
/// A name in that form as a native path: without the quotes around it, with "/".
std::string nativePath(const std::string& name);

/// Whether a name in that form is a file that can be opened for reading; if not, the cause is stored.
bool FileExists(Platform& platform, const std::string& name, FileFailure* failure = nullptr);
/// Reports why a source that exists cannot be read: it is a folder or a device, is too large, or there is not
/// enough memory.  False, with nothing printed, for any other failure.
bool reportRefusal(TShellData& sh, const std::string& name, const FileFailure& failure,
                   std::size_t most = Platform::kMostSourceBytes);

/// Reads a name from the keyboard and completes its extension.  Empty, with a message, if no such file
/// exists.  Nothing at the end of the input.  A typed name is cut after 247 characters.
std::optional<std::string> FindSrcFile(TShellData& sh, Platform& platform);

/// Fills the record from the first bytes of the file `name`; returns `BomText`.
std::string DetBOM(TShellData& sh, MoziCodeData& code, const std::string& name, const SourceBytes& bytes);
/// Decides between UTF-8 and Shift-JIS by counting, and fills the record.
void Det_sjis(TShellData& sh, MoziCodeData& code, const std::string& name, const SourceBytes& bytes);
/// The input of the load stages.
struct LoadRequest {
  Platform& platform;
  MoziCodeData& code;
  const std::string& name;  ///< of the file, in the program's form
  bool reportsEncoding;     ///< the detected encoding is printed
};

/// Finds the encoding and reports it: DetBOM, then Det_sjis where it applies.  Unless the request reports the
/// encoding, only the name of the file is reported, and a file without a mark keeps the encoding of the file
/// before.
void DetectEncoding(TShellData& sh, const LoadRequest& request, const SourceBytes& bytes);

/// Decodes UTF-8, or CP932 if the text is not UTF-8.  Appends to `out`; false, with the text of the failure,
/// if a byte cannot be decoded in either.
bool MbChToWCs(TShellData& sh, std::string_view bytes, std::u16string& out);

/// The loaders.  Each fills the line table with the lines of `bytes`.  If the file `name` cannot be opened, it
/// reports that and returns false, with the table and the tally unchanged.  All but the first treat CR LF as a
/// line end, add no empty line after the last line end, and keep a lone CR and a zero byte in the line.
/// - UTF-16 in the byte order of the record: a line ends at CR LF only, the text after the last one is a
///   line even if it is empty, and half a code unit at the end of the file is dropped.
bool OpenFileUTF16toVecW(Assembly& a, const MoziCodeData& code, const std::string& name,
                         const SourceBytes& bytes);
/// - UTF-8 or CP932, as the record says.
bool OpenFileUTF8toVecW(Assembly& a, const MoziCodeData& code, const std::string& name,
                        const SourceBytes& bytes);
/// - Narrow: the lines become CP932, with "?" for a character that it does not have.
bool OpenFileA(Assembly& a, const std::string& name, const SourceBytes& bytes);
/// - The fixed form: as the narrow one, but a line that is not UTF-8 keeps its bytes.  A line of more than
/// 104
///   bytes becomes several lines, each cut after its 80th byte, which is reported once.  Of a file of more
///   than 310 lines nothing is stored and the result is false.
bool OpenFileChH(Assembly& a, const std::string& name, const SourceBytes& bytes);

/// The load stages: each reads the file and runs the detection or the loader of its name.  False if nothing
/// has been loaded.
bool loadDetecting(Assembly& a, const LoadRequest& request);
bool loadNarrow(Assembly& a, const LoadRequest& request);
bool loadFixed(Assembly& a, const LoadRequest& request);
/// The narrow loader, whose lines then go to the wide table.
bool loadWidened(Assembly& a, const LoadRequest& request);

}  // namespace zelvaro
