// Every message of the checker itself.
#pragma once

#include <string>
#include <string_view>

#include "diag/Diagnostic.h"
#include "diag/Render.h"

namespace zelvaro::check {

/// The rows of wrong use, files, hints, runs, tasks and grades; engine::codes() has those of the core.
RowList checkRows();

/// The words of a row with its holes filled.
template <std::size_t N, class... Arg>
std::string say(Language language, const Message<N>& row, Arg&&... arg) {
  return render(diagnostic(row, Diagnostic::kNoLine, std::forward<Arg>(arg)...), {language, FamilyId::WP});
}

}  // namespace zelvaro::check
