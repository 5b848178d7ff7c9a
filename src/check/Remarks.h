// Makes a remark of one of the checker's own rows.
#pragma once

#include "check/CheckRows.h"
#include "check/Result.h"

namespace zelvaro::check {

template <std::size_t N, class... Arg>
Remark remark(const Message<N>& row, int line, Arg&&... arg) {
  const Diagnostic d = diagnostic(row, line - 1, std::forward<Arg>(arg)...);
  return {row.code,
          line,
          0,
          0,
          {render(d, {Language::Japanese, FamilyId::WP}), render(d, {Language::English, FamilyId::WP})}};
}

}  // namespace zelvaro::check
