// A source text taken along the table of stages, to its end or to any stage, with the line store open.
#pragma once

#include "diag/Quote.h"
#include "engine/Stages.h"
#include "source/Assembly.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

struct Assembled {
  ScriptedPlatform platform;
  Recorder sink;
  TBasicData b{sink};
  TCorrectScode cs{sink};
  TShellData sh{sink};
  Tcomet2 m;
  MoziCodeData code;
  TimeData time;
  const std::string name = "a.txt";
  const Family& f;
  Pass pass;

  /// Loads the source and runs the stages of the check; with `last`, the given name of one, up to that one.
  explicit Assembled(std::string_view source, FamilyId id = FamilyId::WP, std::string_view last = "")
      : f(family(id)),
        pass{{sh, cs, b, f},
             {platform, code, name, false},
             m,
             {platform, sink, time, f},
             {platform, sink, time, f, Language::English}} {
    // a mark leaves no doubt about the encoding
    platform.files[name] = "\xEF\xBB\xBF" + std::string(source);
    runPhase(pass, Phase::Load);
    if (last.empty()) {
      runPhase(pass, Phase::Check);
    } else {
      for (const Stage& stage : stages()) {
        if (stage.phase != Phase::Check || !stage.families.contains(id)) continue;
        stage.function[static_cast<std::size_t>(f.text)](pass, 0);
        if (stage.names.of(id) == last) break;
      }
    }
    sink.taken();
  }
  // what the pass holds refers to the members
  Assembled(const Assembled&) = delete;
  Assembled& operator=(const Assembled&) = delete;

  bool link() { return runPhase(pass, Phase::Link) && pass.assembly.errors() == 0; }
  /// The words of an image from an address on.
  std::vector<int> image(std::size_t from, std::size_t to) {
    return {m.Memory.begin() + from, m.Memory.begin() + to};
  }
  /// The line of each address, counted from 1, 0 for none.
  std::vector<int> lines(std::size_t from, std::size_t to) {
    std::vector<int> out;
    for (std::size_t adr = from; adr < to; ++adr) out.push_back(std::as_const(m.LineOfAddress)[adr] + 1);
    return out;
  }
  /// Working text, label, opcode, operands with their comment, operand buffers of a record, as UTF-8.
  std::string record(int nr) {
    const auto show = [](const auto& s) {
      std::string out = plain(s.SrcWork);
      for (const auto text : {s.LabelStr, s.OpStr, s.OprndComStr}) out += "|" + plain(text);
      for (const auto oprnd : s.Oprnd) out += "|" + plain(oprnd);
      return out;
    };
    return f.text == TextForm::Wide ? show(b.vecSrcW[nr]) : show(b.vecSrcA[nr]);
  }
};

}  // namespace zelvaro::test
