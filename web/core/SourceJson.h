// What a source gives, as the members of an object that protocol.ts describes.
#pragma once

#include <string>
#include <vector>

#include "Json.h"
#include "check/Result.h"
#include "engine/Engine.h"

namespace zelvaro::web {

using Lines = std::vector<std::string>;

/// The members of a finding. `lines` are those of its source.
void putFinding(Json& out, const engine::Finding& f, const Lines& lines);
/// The members of a check: Check of protocol.ts. For a source in UTF-8 that is faulty, `utf8` is completed.
void putCheck(Json& out, const engine::Assembled& a, const Lines& lines, std::string_view utf8);
/// The members that a load adds, without the state of the machine.
void putListing(Json& out, const engine::Assembled& a, const Lines& lines);

}  // namespace zelvaro::web
