#include "cli/Arguments.h"

#include <algorithm>

namespace kartova::cli {

SplitArguments SplitOptions(const std::vector<std::string>& args,
                            const std::vector<std::string>& known_options) {
  SplitArguments split;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--") {
      split.positional.insert(split.positional.end(), args.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                              args.end());
      break;
    }
    if (a.size() < 2 || a[0] != '-') {
      split.positional.push_back(a);
      continue;
    }
    const std::size_t eq = a.find('=');
    const bool long_form = a.compare(0, 2, "--") == 0;
    const std::string name = long_form ? a.substr(2, eq == std::string::npos ? std::string::npos : eq - 2) : "";
    if (!long_form || std::find(known_options.begin(), known_options.end(), name) == known_options.end()) {
      split.error = "unknown option '" + a + "'";
      return split;
    }
    if (eq != std::string::npos) {
      split.options[name] = a.substr(eq + 1);
    } else if (i + 1 < args.size()) {
      split.options[name] = args[++i];
    } else {
      split.error = "--" + name + " needs a value";
      return split;
    }
  }
  return split;
}

std::optional<int> SmallNumber(const std::string& text) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos)
    return std::nullopt;
  return std::stoi(text);
}

}  // namespace kartova::cli
