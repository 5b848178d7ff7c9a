// The statements and labels of an assembled source by address.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "engine/Machine.h"

namespace zelvaro::check {

class Statements {
 public:
  explicit Statements(const engine::Assembled& assembled);

  /// The names of an address: "LOOP", or "MAIN.LOOP" in a source of several programs; joined by a blank.
  const std::string& labelAt(int address) const;
  /// The statement whose word the address holds: "LOOP LD GR1,A".  For any other address, its present word.
  std::string textAt(const engine::Machine& machine, int address) const;
  /// The row of the line whose word the address holds; null if there is none.
  const engine::ListingRow* rowAt(int address) const;
  const std::vector<engine::ListingRow>& rows() const { return rows_; }

 private:
  engine::Assembled assembled_;  ///< rows_ refers to it
  std::vector<engine::ListingRow> rows_;
  std::unordered_map<int, std::size_t> rowOfLine_;
  std::unordered_map<int, std::string> labels_;
};

}  // namespace zelvaro::check
