// From a typed name to the lines of a file: paths, detection of the encoding, the loaders.
#pragma once

#include <string>

#include "source/Assembly.h"

namespace zelvaro {

/// What the detection found; read by the loaders.
struct MoziCodeData {
  int BomKazu = 0;       ///< length of the byte order mark: 3, 2 or 0
  std::string BomText;   ///< "EFBBBF", "FFFE", "FEFF" or empty
  int CodePage = 0;      ///< 1200, 1201, 65001 or 932; keeps its last value where nothing sets it
  std::string CodeName;  ///< the name told to the user
};

/// Trims, quotes a name with blanks, and turns "/" into a backslash: the form that the system passes on.
std::string NormalizePath(const std::string& name);
/// A passed-on name as the file layer wants it: without quotes, with "/".
std::string nativePath(const std::string& name);

/// Reads a name from the keyboard and completes its extension.  Empty, with a message, if no such file
/// exists.  Nothing at the end of the input.
std::optional<std::string> FindSrcFile(TShellData& sh);

/// Finds the encoding and tells the user: DetBOM, then Det_sjis where it applies.
void DetectEncoding(TShellData& sh, MoziCodeData& code, const std::string& name, int simpleTitleIndex);

/// The load stage of WP, NWW and NwW behind the menu: detection, then the loader that fits.  0 or negative.
template <class Family>
int loadSource(Assembly& a, MoziCodeData& code, const std::string& name, int simpleTitleIndex);

}  // namespace zelvaro
