#pragma once

#include <concepts>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kartova::cli {

// A JSON value for the command line tool's output: null, boolean, integer, string, array or
// object (members keep the order they were set in). Dump() writes it pretty-printed with two
// spaces of indentation; an array of numbers, booleans and nulls stays on one line, so that
// rows of bytes read as rows.
class Json {
 public:
  enum class Type { kNull, kBool, kInteger, kString, kArray, kObject };

  Json() = default;
  Json(std::nullptr_t) {}
  Json(bool b) : type_(Type::kBool), bool_(b) {}
  template <std::integral T>
    requires(!std::same_as<T, bool>)
  Json(T n) : type_(Type::kInteger), integer_(static_cast<std::int64_t>(n)) {}
  Json(std::string s) : type_(Type::kString), string_(std::move(s)) {}
  Json(std::string_view s) : Json(std::string(s)) {}
  Json(const char* s) : Json(std::string(s)) {}

  static Json Array() { return Json(Type::kArray); }
  static Json Object() { return Json(Type::kObject); }
  // An array of the given items, each converted to a Json value.
  template <typename Range>
  static Json ArrayOf(const Range& items) {
    Json array = Array();
    for (const auto& item : items) array.Push(Json(item));
    return array;
  }

  Type type() const { return type_; }
  // Number of array items or object members; 0 for the other types.
  std::size_t size() const;

  // Sets member key of an object (replacing an earlier value in its place) and returns the
  // stored value. Throws std::logic_error on a value that is not an object.
  Json& Set(std::string_view key, Json value);
  // Appends an item to an array and returns it. Throws std::logic_error on a non-array.
  Json& Push(Json value);
  // Member key of an object, or nullptr.
  const Json* Find(std::string_view key) const;
  Json* Find(std::string_view key);

  bool AsBool() const { return bool_; }
  std::int64_t AsInteger() const { return integer_; }
  const std::string& AsString() const { return string_; }
  const std::vector<Json>& Items() const { return items_; }
  const std::vector<std::pair<std::string, Json>>& Members() const { return members_; }

  // Pretty-printed text, ending in a line break.
  std::string Dump() const;

 private:
  explicit Json(Type type) : type_(type) {}
  bool IsInlineArray() const;
  void Write(std::string& out, int indent) const;

  Type type_ = Type::kNull;
  bool bool_ = false;
  std::int64_t integer_ = 0;
  std::string string_;
  std::vector<Json> items_;
  std::vector<std::pair<std::string, Json>> members_;
};

// s as a JSON string literal, quotes included: UTF-8 passes through, control characters, quote
// and backslash are escaped, bytes that are no UTF-8 become U+FFFD.
std::string JsonQuoted(std::string_view s);

inline std::ostream& operator<<(std::ostream& out, const Json& json) { return out << json.Dump(); }

}  // namespace kartova::cli
