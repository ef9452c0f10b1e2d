#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kartova::cli {

// A command's arguments split into its positional arguments and its "--name VALUE" or
// "--name=VALUE" options (each may stand anywhere among them). "--" ends the options: what
// follows it is positional even when it starts with "-". A lone "-" is positional.
struct SplitArguments {
  std::vector<std::string> positional;
  std::map<std::string, std::string> options;
  std::string error;  // set for an unknown option or one without a value
};
SplitArguments SplitOptions(const std::vector<std::string>& args,
                            const std::vector<std::string>& known_options);

// Decimal digits only, at most nine of them.
std::optional<int> SmallNumber(const std::string& text);

}  // namespace kartova::cli
