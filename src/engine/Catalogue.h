// Every message of the core.
#pragma once

#include "diag/Message.h"

namespace zelvaro {

/// All rows, by file, in the order in which their checks can issue them.  A file with rows lists them at its
/// end, and its name is in Catalogue.cpp.
RowList allRows();

/// The same rows, with the name of their file.
struct CatalogueFile {
  std::string_view name;
  RowList rows;
};
std::vector<CatalogueFile> allFiles();

}  // namespace zelvaro
