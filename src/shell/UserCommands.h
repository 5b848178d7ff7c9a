// What the menu does with files and folders of the user, and how it words what came of it.
#pragma once

#include <string>

#include "shell/Session.h"

namespace zelvaro {

/// Prints the names of a folder's entries.
void listFolder(TSession& s, const std::string& path);

/// Deletes a file if the user says yes; the end of the input is no yes.
void deleteAfterQuestion(TSession& s, const std::string& path);

/// Shows a file with an editor and waits for it.  Without an editor the text is printed, whichever of the
/// encodings of a source it has.
void editFile(TSession& s, const EditorCommand& editor, const std::string& path);

/// The same for a file that the user or the settings have named: what is no regular file, or is not there, is
/// reported and no editor is started.  Does nothing without a name.
void showFile(TSession& s, const EditorCommand& editor, const std::string& path);

/// Hands a document to the desktop.  Without a desktop a text is printed, and of any other file its place.
void openDocument(TSession& s, const std::string& path);

}  // namespace zelvaro
