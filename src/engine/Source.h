// What Assembled and Machine share: the objects of the core for one source.  Only src/engine/ includes this.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/Engine.h"
#include "engine/Quiet.h"
#include "engine/Stages.h"

namespace zelvaro::engine::detail {

/// The value of a message, without what depends on a line's text.
Finding findingOf(const Diagnostic& d, FamilyId family);

/// Constant once assemble() has returned.
struct Source : DiagSink {
  Source(std::string_view source, const Options& o);

  /// Load, checks and link.
  void assemble();
  void take(const Diagnostic& d) override;

  template <class Char>
  const LineStore<Char>& store() const {
    return b.store<Char>();
  }
  /// Calls `work` with the store of the pipeline.
  template <class Work>
  auto withStore(Work work) const {
    return f.text == TextForm::Wide ? work(b.vecSrcW) : work(b.vecSrcA);
  }
  /// The dialogue's report of a machine; `name` is one of the two names.
  std::string report(Tcomet2 machine, std::string_view name, const ReportOptions& how) const;
  std::span<const std::uint16_t> words(int address, int count) const;

  const Options options;
  const Family& f;
  std::shared_ptr<const std::string> bytes;  ///< as the loader gets them
  TBasicData b{*this};
  TCorrectScode cs{*this};
  TShellData sh{*this};
  Tcomet2 m;  ///< the linked image
  MoziCodeData code;
  TimeData time;
  Outcome outcome = Outcome::NotLoaded;
  Encoding encoding = Encoding::Auto;
  std::vector<Finding> findings;
  std::size_t leftOut = 0;
  std::vector<std::uint16_t> image;

 private:
  Outcome passPhases();
  bool isLeftOut(const Diagnostic& d) const;
  void findPlace(Finding& finding, const Diagnostic& d) const;
  void takeImage();
};

}  // namespace zelvaro::engine::detail
