// Dialogue and engine say the same of a source: messages and tallies, image, run, counts, both reports.
#include <gtest/gtest.h>

#include <iterator>
#include <random>

#include "diag/Render.h"
#include "engine/Machine.h"
#include "findings/Cases.h"
#include "whole/Dialogue.h"
#include "whole/RandomSource.h"

namespace zelvaro::test {
namespace {

/// What is issued around the work of the stages: by menus, clocks and services.
constexpr std::string_view kOfTheDialogue[]{"banner",
                                            "banner-simple",
                                            "report-line",
                                            "report-line-assembled",
                                            "report-line-resultant",
                                            "assembled",
                                            "run-start",
                                            "run-end",
                                            "run-time",
                                            "in-prompt",
                                            "out-heading",
                                            "go-on"};

/// Messages of the core, in order, as the console has them.
class CoreMessages : public DiagSink {
 public:
  CoreMessages(const Family& f, Language l, Dialogue* endless) : endless_(endless), wording_{l, f.id} {
    for (const engine::CodeInfo& info : engine::codes(f.id)) core_.insert(info.code);
    for (const std::string_view code : kOfTheDialogue) core_.erase(code);
  }
  void take(const Diagnostic& d) override {
    if (endless_ != nullptr && d.row->code == "run-start") endless_->session().m.Memory[0] = kRet;
    if (core_.count(d.row->code) != 0 && !d.row->code.starts_with("sum-")) text += render(d, wording_);
  }
  std::string text;

 private:
  static constexpr std::int32_t kRet = 0x8100;
  Dialogue* endless_;  ///< its run is ended at once, unless null
  std::set<std::string_view> core_;
  Wording wording_;
};

const std::vector<std::string> kTyped{"x, ｱ表\tソ", "no such command", "12"};

/// What a source is to the engine, and whether the dialogue says the same.
class Both {
 public:
  Both(const std::string& bytes, const Family& f, Language language)
      : bytes_(bytes),
        f_(f),
        language_(language),
        a_(engine::assemble(bytes, {.pipeline = f.id, .name = "a.txt"})) {
    for (const engine::Finding& finding : a_.findings()) said_ += finding.printed.in(language);
    if (!a_.ok()) return;
    m_.emplace(a_, engine::RunOptions{.endedInputIsEmpty = true});
    for (const std::string& line : kTyped) m_->giveLine(line);
    m_->endInput();
    halt_ = m_->run(500'000);
  }
  bool runs() const { return m_.has_value(); }
  bool isEndless() const { return runs() && halt_.stop == Stop::Steps; }

  void expectAgreement() {
    Dialogue d;
    CoreMessages messages(f_, language_, isEndless() ? &d : nullptr);
    d.alsoTakes = &messages;
    std::vector<std::string> typed = kTyped;
    if (a_.tallies().warnings > 0) typed.insert(typed.begin(), "1");  // the go-on question
    d.assemble(bytes_, std::string(f_.name), typed, language_ == Language::Japanese ? "JPN" : "ENU");
    how_ = {language_, d.platform.now, false};
    const Files& files = d.platform.files;
    ASSERT_EQ(files.count(std::string(ResultantRegFile)), runs() ? 1u : 0u);
    if (runs()) {
      const engine::Tallies t = a_.tallies();
      EXPECT_EQ((Tallies{t.errors, t.warnings, t.notes, t.memos}), d.platform.tallies);
      EXPECT_EQ(a_.report(how_), files.at(std::string(AssembledRegFile)));
      if (!isEndless()) expectSameRun(d, files.at(std::string(ResultantRegFile)));
    }
    EXPECT_EQ(said_, messages.text);
  }

 private:
  void expectSameRun(Dialogue& d, const std::string& report) {
    EXPECT_EQ(m_->report(how_), report);
    EXPECT_NE(engine::kindOf(halt_.stop), engine::HaltKind::Pause);
    std::size_t from = 0;
    for (const engine::Event& e : m_->events()) {
      if (e.kind == engine::Event::Kind::Message) said_ += e.message->printed.in(language_);
      if (e.kind != engine::Event::Kind::Out) continue;
      const std::string line = "\n" + e.text + "\n";
      from = d.platform.console.find(line, from);
      ASSERT_NE(from, std::string::npos) << line;
      from += line.size() - 1;
    }
    for (const engine::Finding& finding : m_->stopMessages()) said_ += finding.printed.in(language_);
    std::int64_t executed = 0;
    const Tcomet2& other = d.session().m;
    const Cells& memory = other.Memory;
    const Cells& counts = other.ExecCount;
    for (std::size_t adr = 0; adr < kAddressSpace; ++adr) {
      executed += counts[adr];
      ASSERT_EQ(m_->word(static_cast<int>(adr)), static_cast<std::uint16_t>(memory[adr]));
      ASSERT_EQ(m_->count(static_cast<int>(adr)), static_cast<std::uint32_t>(counts[adr]));
    }
    EXPECT_EQ(executed, halt_.executed);
    EXPECT_EQ(m_->registers().os, other.OS);
    EXPECT_EQ(m_->registers().pr, other.PR);
  }

  const std::string bytes_;
  const Family& f_;
  Language language_;
  engine::Assembled a_;
  std::optional<engine::Machine> m_;
  engine::Halt halt_;
  engine::ReportOptions how_;
  std::string said_;
};

TEST(Engine, AgreesWithTheDialogueOnEveryCase) {
  int n = 0, ran = 0;
  for (const Case& c : allCases())
    for (const Family& f : families()) {
      Both both(c.bytes, f, ++n % 2 == 0 ? Language::Japanese : Language::English);
      both.expectAgreement();
      ran += both.runs() && !both.isEndless() ? 1 : 0;
      if (HasFailure()) FAIL() << c.file << ":" << c.lineOfFile << " " << f.name;
    }
  EXPECT_GT(ran, n / 10);
}

/// Some are damaged in one place.
TEST(Engine, AgreesWithTheDialogueOnRandomSources) {
  constexpr unsigned kSources = 500;
  unsigned ran = 0;
  for (unsigned seed = 0; seed < kSources; ++seed) {
    std::mt19937 random(seed);
    std::string source =
        kMark8 + randomSource(seed, seed % 3 == 0 ? DataPlace::AmongCode : DataPlace::AfterCode);
    const Family& f = families()[seed % families().size()];
    if (seed % 5 < 2) source[3 + random() % (source.size() - 3)] = ", 'Gx=9;#"[random() % 9];
    Both both(source, f, random() % 2 == 0 ? Language::Japanese : Language::English);
    both.expectAgreement();
    ran += both.runs() && !both.isEndless() ? 1u : 0u;
    if (HasFailure()) FAIL() << "seed " << seed << " " << f.name << "\n" << source;
  }
  EXPECT_GE(ran, kSources / 2);
}

}  // namespace
}  // namespace zelvaro::test
