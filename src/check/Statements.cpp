#include "check/Statements.h"

#include <fmt/format.h>

namespace zelvaro::check {

Statements::Statements(const engine::Assembled& assembled)
    : assembled_(assembled), rows_(assembled.listing()) {
  for (std::size_t i = 0; i < rows_.size(); ++i) rowOfLine_.emplace(rows_[i].line, i);
  const std::vector<engine::Program> programs = assembled.programs();
  for (const engine::Label& label : assembled.labels()) {
    std::string& names = labels_[label.address];
    if (!names.empty()) names += ' ';
    if (programs.size() > 1) names += programs.at(static_cast<std::size_t>(label.program)).name + '.';
    names += label.name;
  }
}

const std::string& Statements::labelAt(int address) const {
  static const std::string none;
  const auto it = labels_.find(address);
  return it == labels_.end() ? none : it->second;
}

const engine::ListingRow* Statements::rowAt(int address) const {
  const auto it = rowOfLine_.find(assembled_.lineOf(address));
  return it == rowOfLine_.end() ? nullptr : &rows_[it->second];
}

std::string Statements::textAt(const engine::Machine& machine, int address) const {
  const engine::ListingRow* row = rowAt(address);
  if (row == nullptr) return fmt::format("(#{:04X})", machine.word(address));
  std::string out = row->label.empty() ? "" : row->label + ' ';
  out += row->opcode;
  return row->operands.empty() ? out : out + ' ' + row->operands;
}

}  // namespace zelvaro::check
