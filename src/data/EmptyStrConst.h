// The guard against a character constant without characters, for the code that makes and that copies the
// words of a DC.  OprndAtDCtoChH refuses such a constant before that.
#pragma once

#include "diag/Message.h"

namespace zelvaro {

inline constexpr Message strConstNoMozi =
    Message{"string-without-characters",
            Severity::Error,
            Head::Line,
            args("nr"),
            {.ja = "の文字列定数: サイズがゼロである。\n"
                   "文字列定数は文字数は1以上でなければならない。\n"
                   "文字列の文字数（＞０）分の連続した領域を確保する。（CASL2の仕様２．３（４）文字定数） ",
             .en = "The size of the constant is zero, that is, the character constant is empty. \n"
                   "One or more characters must be contained in a character constant. \n"
                   "This instruction allocates a continuous area for the number of characters(> 0) in the "
                   "character string.(Spec. of CASL2  2.3 (4) Character Constant）"}}
        .withHead({.ja = "エラー： {line} 行目： {nr} 番目の定数： ",
                   .en = "Error : line {line}:  Constant Nr={nr}: "});

}  // namespace zelvaro
