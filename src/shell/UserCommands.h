// The menu's commands on files and folders of the user, with their messages.
#pragma once

#include <string>

#include "shell/Session.h"

namespace zelvaro {

/// Prints the names of a folder's entries.
void listFolder(TSession& s, const std::string& path);

/// Deletes a file if the user answers yes; the end of the input counts as no.
void deleteAfterQuestion(TSession& s, const std::string& path);

/// Prints a text file, in whichever encoding of a source it is, page by page on a terminal.
void printFile(TSession& s, const std::string& path);

/// Opens a file with an editor and waits for its end.  Without an editor the text is printed.
void editFile(TSession& s, const EditorCommand& editor, const std::string& path);

/// The same for a file named by the user or by the settings: if it is missing or not a regular file, that is
/// reported and no editor is started.  Does nothing without a name.
void showFile(TSession& s, const EditorCommand& editor, const std::string& path);

/// Opens a document with the desktop.  Without a desktop a text file is printed, and for any other file its
/// path.
void openDocument(TSession& s, const std::string& path);

}  // namespace zelvaro
