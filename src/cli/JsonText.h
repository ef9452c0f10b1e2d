#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace kartova::cli {

// The command line tool's JSON values: members keep the order they were set in, so that the
// keys come out as the documentation lists them.
using Json = nlohmann::ordered_json;

// json as the tool prints it, ending in a line break: two spaces of indentation, and an array
// of only numbers, booleans and nulls kept on one line, so that rows of bytes read as rows.
// Strings are UTF-8; bytes that are no UTF-8 become U+FFFD.
std::string JsonText(const Json& json);

}  // namespace kartova::cli
