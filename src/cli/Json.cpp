#include "cli/Json.h"

#include <cstdio>
#include <stdexcept>

#include "rom/Utf8.h"

namespace kartova::cli {

namespace {

void AppendEscaped(std::string& out, unsigned char c) {
  switch (c) {
    case '"': out += "\\\""; return;
    case '\\': out += "\\\\"; return;
    case '\b': out += "\\b"; return;
    case '\f': out += "\\f"; return;
    case '\n': out += "\\n"; return;
    case '\r': out += "\\r"; return;
    case '\t': out += "\\t"; return;
    default: break;
  }
  if (c < 0x20 || c == 0x7F) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "\\u%04x", c);
    out += buf;
  } else {
    out += static_cast<char>(c);
  }
}

void Indent(std::string& out, int indent) { out.append(static_cast<std::size_t>(indent) * 2, ' '); }

}  // namespace

std::string JsonQuoted(std::string_view s) {
  std::string out = "\"";
  for (std::size_t i = 0; i < s.size();) {
    const auto c = static_cast<unsigned char>(s[i]);
    if (c < 0x80) {
      AppendEscaped(out, c);
      ++i;
    } else if (std::size_t n = Utf8SequenceLength(s, i)) {
      out.append(s.substr(i, n));
      i += n;
    } else {
      out += "\xEF\xBF\xBD";
      ++i;
    }
  }
  return out + "\"";
}

std::size_t Json::size() const {
  if (type_ == Type::kArray) return items_.size();
  if (type_ == Type::kObject) return members_.size();
  return 0;
}

Json& Json::Set(std::string_view key, Json value) {
  if (type_ != Type::kObject) throw std::logic_error("JSON member set on a value that is no object");
  if (Json* existing = Find(key)) return *existing = std::move(value);
  return members_.emplace_back(std::string(key), std::move(value)).second;
}

Json& Json::Push(Json value) {
  if (type_ != Type::kArray) throw std::logic_error("JSON item pushed to a value that is no array");
  return items_.emplace_back(std::move(value));
}

const Json* Json::Find(std::string_view key) const {
  for (const auto& [name, value] : members_)
    if (name == key) return &value;
  return nullptr;
}

Json* Json::Find(std::string_view key) {
  return const_cast<Json*>(static_cast<const Json*>(this)->Find(key));
}

bool Json::IsInlineArray() const {
  for (const Json& item : items_)
    if (item.type_ == Type::kString || item.type_ == Type::kArray || item.type_ == Type::kObject)
      return false;
  return true;
}

void Json::Write(std::string& out, int indent) const {
  switch (type_) {
    case Type::kNull: out += "null"; return;
    case Type::kBool: out += bool_ ? "true" : "false"; return;
    case Type::kInteger: out += std::to_string(integer_); return;
    case Type::kString: out += JsonQuoted(string_); return;
    case Type::kArray:
      if (items_.empty()) { out += "[]"; return; }
      if (IsInlineArray()) {
        out += '[';
        for (std::size_t i = 0; i < items_.size(); ++i) {
          if (i) out += ", ";
          items_[i].Write(out, indent);
        }
        out += ']';
        return;
      }
      out += "[\n";
      for (std::size_t i = 0; i < items_.size(); ++i) {
        Indent(out, indent + 1);
        items_[i].Write(out, indent + 1);
        out += i + 1 < items_.size() ? ",\n" : "\n";
      }
      Indent(out, indent);
      out += ']';
      return;
    case Type::kObject:
      if (members_.empty()) { out += "{}"; return; }
      out += "{\n";
      for (std::size_t i = 0; i < members_.size(); ++i) {
        Indent(out, indent + 1);
        out += JsonQuoted(members_[i].first) + ": ";
        members_[i].second.Write(out, indent + 1);
        out += i + 1 < members_.size() ? ",\n" : "\n";
      }
      Indent(out, indent);
      out += '}';
      return;
  }
}

std::string Json::Dump() const {
  std::string out;
  Write(out, 0);
  return out + "\n";
}

}  // namespace kartova::cli
