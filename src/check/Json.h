// What the documents in JSON share.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Machine.h"

namespace zelvaro::check {

/// Members keep the order in which they were put.
using Json = nlohmann::ordered_json;

/// The text of a value.  Bytes of a file's name that are no UTF-8 become U+FFFD.
std::string dumped(const Json& value);
/// A document with the members of `head` and then `member`, an array of elements that are text already.
std::string documentOf(const Json& head, std::string_view member, const std::vector<std::string>& elements);
/// The name of a stop in a document: "end", "pr-guard", "step-limit" ...
std::string_view stopName(Stop stop);

}  // namespace zelvaro::check
