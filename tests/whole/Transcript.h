// The cases of tests/transcripts/*.transcript.  Blocks of a case:
//   file NAME       a file beside the program before it starts; the samples of workspace/src are there too
//   bytes NAME      the same, for what is no text: hexadecimal digits, blanks and line ends between them
//   edit NAME       what the file holds once it has been edited
//   folder NAME     there is a folder of that name (an empty block)
//   unwritable NAME a file of that name cannot be written (an empty block)
//   language        "ja" for a user of a Japanese machine
//   random          the number that a report draws; 0 where the block is missing
//   ticks           microseconds that pass from one look at a clock to the next; 0 where it is missing
//   typed           the lines typed; behind the last one the input ends.  "<bytes 61 FF>" is a line of such bytes
//   console         all that is shown, to the letter
//   seen            what a person sees: typed lines behind "> ", programs started in brackets, the banner
//                   and the main menu by name
//   report NAME     a file after the end, report or settings
#pragma once

#include <memory>

#include "support/Golden.h"
#include "whole/Dialogue.h"

namespace zelvaro::test {

/// Prepares the machine as the case tells and types its lines.
std::unique_ptr<Dialogue> play(const GoldenCase& c);

}  // namespace zelvaro::test
