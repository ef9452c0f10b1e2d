#include "cli/JsonText.h"

#include <algorithm>

namespace kartova::cli {

namespace {

// Names come from ROMs and INI files written by anyone; a stray byte must not make the whole
// output unreadable to a JSON parser.
void AppendQuoted(std::string& out, const std::string& text) {
  const std::string quoted = Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
  // DEL is invisible in a terminal; the tool has always written it escaped.
  for (char c : quoted) {
    if (c == '\x7F')
      out += "\\u007f";
    else
      out += c;
  }
}

void Indent(std::string& out, int depth) { out.append(static_cast<std::size_t>(depth) * 2, ' '); }

bool IsInlineArray(const Json& array) {
  return std::all_of(array.begin(), array.end(), [](const Json& item) {
    return item.is_number() || item.is_boolean() || item.is_null();
  });
}

void Write(std::string& out, const Json& value, int depth) {
  if (value.is_string()) {
    AppendQuoted(out, value.get_ref<const std::string&>());
  } else if (value.is_array()) {
    if (value.empty()) {
      out += "[]";
    } else if (IsInlineArray(value)) {
      out += '[';
      for (auto it = value.begin(); it != value.end(); ++it) {
        if (it != value.begin()) out += ", ";
        out += it->dump();
      }
      out += ']';
    } else {
      out += "[\n";
      for (auto it = value.begin(); it != value.end(); ++it) {
        if (it != value.begin()) out += ",\n";
        Indent(out, depth + 1);
        Write(out, *it, depth + 1);
      }
      out += '\n';
      Indent(out, depth);
      out += ']';
    }
  } else if (value.is_object()) {
    if (value.empty()) {
      out += "{}";
      return;
    }
    out += "{\n";
    for (auto it = value.begin(); it != value.end(); ++it) {
      if (it != value.begin()) out += ",\n";
      Indent(out, depth + 1);
      AppendQuoted(out, it.key());
      out += ": ";
      Write(out, it.value(), depth + 1);
    }
    out += '\n';
    Indent(out, depth);
    out += '}';
  } else {
    out += value.dump();
  }
}

}  // namespace

std::string JsonText(const Json& json) {
  std::string out;
  Write(out, json, 0);
  out += '\n';
  return out;
}

}  // namespace kartova::cli
