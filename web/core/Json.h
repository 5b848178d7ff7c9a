// Writes JSON. The worker parses what the core answers, so only what these answers need is here: a library for it would be a
// fifth of the whole core.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "engine/Engine.h"

namespace zelvaro::web {

class Json {
 public:
  void begin(char bracket) {
    separate();
    out_ += bracket;
    isFirst_ = true;
  }
  void end(char bracket) {
    out_ += bracket;
    isFirst_ = false;
  }
  void key(std::string_view name) {
    value(name);
    out_ += ':';
    isFirst_ = true;
  }

  /// UTF-8.
  void value(std::string_view text);
  void value(const std::string& text) { value(std::string_view(text)); }
  void value(const char* text) { value(std::string_view(text)); }
  void value(const engine::Text& text) {
    begin('{');
    member("ja", text.ja);
    member("en", text.en);
    end('}');
  }
  template <class Number>
  requires std::is_arithmetic_v<Number>
  void value(Number number) {
    separate();
    if constexpr (std::is_same_v<Number, bool>) {
      out_ += number ? "true" : "false";
    } else {
      char digits[24];
      out_.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    }
  }
  void null() {
    separate();
    out_ += "null";
  }

  template <class T>
  void member(std::string_view name, const T& v) {
    key(name);
    value(v);
  }
  template <class Range>
  void list(std::string_view name, const Range& range) {
    key(name);
    begin('[');
    for (const auto& v : range) value(v);
    end(']');
  }
  /// A list of objects: `write(v)` writes the members of one.
  template <class Range, class Write>
  void objects(std::string_view name, const Range& range, Write write) {
    key(name);
    objects(range, write);
  }
  template <class Range, class Write>
  void objects(const Range& range, Write write) {
    begin('[');
    for (const auto& v : range) {
      begin('{');
      write(v);
      end('}');
    }
    end(']');
  }

  std::string take() { return std::move(out_); }

 private:
  void separate() {
    if (!isFirst_) out_ += ',';
    isFirst_ = false;
  }

  std::string out_;
  bool isFirst_ = true;  ///< no comma is needed
};

}  // namespace zelvaro::web
