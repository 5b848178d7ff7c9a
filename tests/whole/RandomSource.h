// Source files that every pipeline takes without an Error or a Warning and that come to an end when they run.
// The same seed gives the same text.
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zelvaro::test {

/// Where a program keeps its DC and DS lines.
enum class DataPlace { BehindCode, AmongCode };

class RandomSource {
 public:
  RandomSource(unsigned seed, DataPlace place) : random_(seed), place_(place) {}

  /// One to three programs; the first calls the others, and reads one line of at most 20 characters now and
  /// then.
  std::string file();

 private:
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  bool oneIn(int n) { return below(n) == 0; }
  template <class Row>
  auto any(const Row& row) {
    return row[static_cast<std::size_t>(below(static_cast<int>(std::size(row))))];
  }

  void line(const std::string& label, const std::string& op, const std::string& oprnds = "");
  std::string comma();
  std::string reg() { return "GR" + std::to_string(below(6)); }
  std::string word();
  std::string number();
  std::string hex();
  std::string charConst(std::size_t& length);
  std::string literal();
  std::string memory();

  void program(int nr);
  void blocks(int nr);
  void statement();
  void operation();
  void jumpAhead();
  void loop();
  void output();
  void begin();
  void words();
  void texts();

  std::mt19937 random_;
  DataPlace place_;
  std::string out_;
  std::string label_;  ///< stands on the next line
  int programs_ = 0;
  int block_ = 0;
  int blocks_ = 0;
  int loops_ = 0;
  int texts_ = 0;
  bool isFirst_ = true;
  bool reads_ = false;
};

}  // namespace zelvaro::test
