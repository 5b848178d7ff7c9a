// Every row of the catalogue: its code, its words, and that some test issues it.
#include <gtest/gtest.h>

#include <set>

#include "comet2/Guards.h"
#include "data/DC.h"
#include "data/Data.h"
#include "encode/AdrConst.h"
#include "engine/Catalogue.h"
#include "engine/MachineRows.h"
#include "findings/Assembled.h"
#include "findings/Cases.h"
#include "link/Link.h"
#include "link/SetMemory10.h"
#include "macro/Macro.h"
#include "shell/ShellRows.h"
#include "structure/Structure.h"
#include "structure/ZenKaku.h"
#include "support/Dialogue.h"

namespace zelvaro::test {
namespace {

using Codes = std::set<std::string_view>;

RowList everyRow() {
  RowList all = allRows();
  for (const RowList& more : {shellRows(), engine::machineRows()})
    all.insert(all.end(), more.begin(), more.end());
  return all;
}

TEST(Rows, HaveUniqueCodesAndPrintInBothLanguagesForEveryFamily) {
  Codes codes;
  for (const MessageRow* row : everyRow()) {
    EXPECT_TRUE(codes.insert(row->code).second) << row->code << " occurs twice";
    Codes names;
    Diagnostic d{row, 6, {}};
    for (std::size_t i = 0; i < row->argCount; ++i) {
      EXPECT_TRUE(names.insert(row->argName[i]).second) << row->code << ": " << row->argName[i];
      d.args.emplace_back(std::string("<") + row->argName[i] + ">");
    }
    for (const Family& family : families()) {
      const std::string ja = render(d, {Language::Japanese, family.id});
      const std::string en = render(d, {Language::English, family.id});
      EXPECT_NE(ja + en, "") << row->code;
      EXPECT_EQ((ja + en).find_first_of("{}"), std::string::npos) << row->code << ": " << ja << en;
    }
  }
  EXPECT_GT(codes.size(), 200u);
}

/// Words that are part of a longer text and are not issued.
const Codes kParts{"report-date", "self-no-frequency", "self-clock-unknown", "file-not-regular",
                   "file-leads-outside"};

/// Typed lines that make the shell, a run and the loaders say the rest.
Recorder sessions() {
  Recorder all;
  const auto play = [&](const std::string& source, const std::vector<std::string>& typed,
                        const std::string& settings = "") {
    for (const std::string family : {"WP", "NaW", "AP", "NH"}) {
      Dialogue d;
      d.alsoTakes = &all;
      d.platform.unwritable = {std::string(AssembledRegFile)};
      d.platform.files["a.txt"] = source;
      d.platform.files["zelvaro.ini"] = "[Mode]\nLangStr=ENU\nFightFunc=" + family + "\n" + settings;
      d.run(typed);
    }
  };
  play("A START\n FOO\n END\n", {"", "1", "a.txt", "", ""});
  play("A START\n LD GR1\n END\n", {"", "1", "a.txt", "", "1", "b.txt"}, "SimpleTitleIndex=1\n");
  play("A START\n SVC 1\n RET\n DC 1,\n END\n", {"", "1", "a.txt", "1", "\xFF\x81", ""});
  play("A START\n SVC 1\n END\nB START\n RET\n END\n", {"", "1", "a.txt", "2"},
       "[Editor]\nTextEditorIndex=7\n");
  return all;
}

/// What no source reaches, since an earlier check refuses it: the stages are handed it.
template <class Char>
class HandedOver {
 public:
  HandedOver(FamilyId id, Recorder& all)
      : at_(family(id), "A START\n LD GR1,=5\n DC 'A'\n DS 1\n END\n", false) {
    at_.session.channel.add(all);
  }

  void linesThatAnEarlierCheckRefuses() {
    for (const char* hex : {"#12G4", "#12345", "1234"}) CkHexConstG<Char>(a_, 0, 0, keep(hex));
    CkDecConstG<Char>(a_, 0, 0, keep("X"));
    SetLiteCharConstMryIn<Char>(a_, ld_, keep("='"));
    ld_.Oprnd.fill(keep(""));
    for (const int n : {1, 3}) CkAdrOperand<Char>(a_, ld_, n);
    macro2<Char>(a_, ld_);
    macroR2<Char>(a_, ld_);
    a_.cs.clearTallies();
    InOut1<Char>(a_, ld_);
    ds_.Oprnd.fill(ds_.OprndComStr = keep("+"));
    SetMryInAtDS<Char>(a_, 0);
    for (const char* constant : {"''", "abc"}) {
      store_.vecOprndAtDC[0].ConstStr = keep(constant);
      SetMryInAtDC<Char>(a_, 0);
    }
    SetWordKazuAtDC<Char>(a_, store_[2]);
    ld_.OpNr = -1;
    AdrCk53<Char>(a_, 0);
    start_.SrcStr = start_.SrcWork = keep(" START");
    StartEnd<Char>(a_, 0);
    CkPrgName<Char>(a_, 0);
    for (const char* end : {"END\u3000", "\u3000END"}) {
      start_.SrcWork = keep(end);
      DetENDatZenKakuSpace<Char>(a_);
    }
  }
  void programsThatTheLinkRefuses() {
    Tcomet2& m = at_.session.m;
    m.Memory[0] = 1;
    SetMemory10<Char>(a_, m, 0);
    store_.vecOprndAtDC[0].DataType = ConstKind::Const;
    SetMemory10<Char>(a_, m, 0);
    store_.vecAdrConst[0].WordKazu = MaxMemory + 1;
    Link31<Char>(a_, m);
    ds_.word_kazu = MaxMemory + 1;
    Link31<Char>(a_, m);
  }
  /// The scripted platform has none of these; tests/program plays them in real surroundings.
  void surroundings() {
    TSession& s = at_.session;
    DetBOM(s.sh, s.moziCodeData, "", std::nullopt);
    DetBOM(s.sh, s.moziCodeData, "a.txt", std::nullopt);
    Det_sjis(s.sh, s.moziCodeData, "a.txt", std::nullopt);
    using Kind = FileFailure::Kind;
    for (const Kind kind : {Kind::NoMemory, Kind::Folder, Kind::NotRegular, Kind::TooLarge})
      EXPECT_TRUE(reportRefusal(s.sh, "a.txt", FileFailure{kind, ""}));
    EXPECT_FALSE(reportRefusal(s.sh, "a.txt", FileFailure{Kind::Missing, ""}));
    for (const Stop stop : {Stop::Return, Stop::InputEnded, Stop::NobodyThere})
      reportStop(stop, s.m, s.channel);
  }

 private:
  ViewOf<Char> keep(std::string_view utf8) { return store_.arena.keep(toUtf16(utf8)); }

  Assembled at_;
  Assembly a_{at_.session.sh, at_.session.cs, at_.session.b, family(at_.session.wording.family)};
  LineStore<Char>& store_ = a_.template store<Char>();
  SrcData<Char>&start_ = store_[0], &ld_ = store_[1], &ds_ = store_[3];
};

TEST(Rows, AreIssuedByACaseOrASessionOrTheirStageAlone) {
  Recorder all = sessions();
  HandedOver<char16_t> wide(FamilyId::WP, all);
  wide.linesThatAnEarlierCheckRefuses();
  wide.surroundings();
  HandedOver<char>(FamilyId::AP, all).programsThatTheLinkRefuses();
  HandedOver<char>(FamilyId::NH, all).programsThatTheLinkRefuses();
  Codes issued;
  for (const Diagnostic& d : all.issued) issued.insert(d.row->code);
  for (const Case& c : allCases())
    for (const Family& family : families())
      for (const Diagnostic& d : Assembled(family, c.bytes, c.runs).recorder.issued)
        issued.insert(d.row->code);
  for (const MessageRow* row : allRows())  // those of the shell: dialogues/DialoguesTest.cpp
    EXPECT_NE(issued.contains(row->code), kParts.contains(row->code)) << row->code;
}

}  // namespace
}  // namespace zelvaro::test
