#include "engine/Checkpoints.h"

#include <algorithm>

namespace zelvaro::engine {
namespace {

/// The fields of a machine that a run changes, without its arrays.
std::array<std::int32_t*, 9> fieldsOf(Tcomet2& m) {
  return {&m.OS, &m.LastAdr, &m.MaxExecCount, &m.PR, &m.EffAdr, &m.SP, &m.Fovf, &m.Fsign, &m.Fzero};
}

}  // namespace

Pages::Pages(Cells& cells, const Pages* before) : pages_((cells.size() + kPage - 1) / kPage) {
  static constexpr Page kZeros{};
  const std::size_t used =
      cells.touched();  // those after it are 0, and a look at them would cost a page each
  const std::int32_t* const data = cells.data();
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    const bool hasBefore = before != nullptr && before->pages_[i] != nullptr;
    if (i * kPage >= used && !hasBefore) continue;
    const std::int32_t* const from = data + i * kPage;
    const std::int32_t* const to = data + std::min((i + 1) * kPage, cells.size());
    if (std::equal(from, to, hasBefore ? before->pages_[i]->begin() : kZeros.begin())) {
      if (hasBefore) pages_[i] = before->pages_[i];
      continue;
    }
    const auto page = std::make_shared<Page>();
    std::copy(from, to, page->begin());
    pages_[i] = page;
  }
}

void Pages::copyTo(Cells& cells) const {
  std::int32_t* const data = cells.data();
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    const std::size_t count = std::min(kPage, cells.size() - i * kPage);
    if (pages_[i] == nullptr) {
      std::fill_n(data + i * kPage, count, 0);
    } else {
      std::copy_n(pages_[i]->begin(), count, data + i * kPage);
    }
  }
}

Checkpoint::Checkpoint(Tcomet2& m, const RunState& state, const Checkpoint* before)
    : state_(state),
      memory_(m.Memory, before == nullptr ? nullptr : &before->memory_),
      counts_(m.ExecCount, before == nullptr ? nullptr : &before->counts_),
      stack_(m.StackArea),
      gr_(m.GR) {
  const auto fields = fieldsOf(m);
  std::transform(fields.begin(), fields.end(), fields_.begin(), [](const std::int32_t* f) { return *f; });
}

void Checkpoint::copyTo(Tcomet2& m) const {
  memory_.copyTo(m.Memory);
  counts_.copyTo(m.ExecCount);
  m.StackArea = stack_;
  m.GR = gr_;
  const auto fields = fieldsOf(m);
  for (std::size_t i = 0; i < fields.size(); ++i) *fields[i] = fields_[i];
}

void Checkpoints::add(Tcomet2& m, const RunState& state) {
  if (all_.size() == kMost) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < all_.size(); i += 2) {
      if (kept != i) all_[kept] = std::move(all_[i]);
      ++kept;
    }
    all_.erase(all_.begin() + static_cast<std::ptrdiff_t>(kept), all_.end());
    distance_ *= 2;
  }
  all_.emplace_back(m, state, all_.empty() ? nullptr : &all_.back());
}

const Checkpoint& Checkpoints::before(std::int64_t steps) const {
  const auto after =
      std::upper_bound(all_.begin(), all_.end(), steps,
                       [](std::int64_t s, const Checkpoint& c) { return s < c.state().steps; });
  return *(after - 1);
}

void Checkpoints::dropAfter(std::int64_t steps) {
  while (all_.size() > 1 && all_.back().state().steps > steps) all_.pop_back();
}

}  // namespace zelvaro::engine
