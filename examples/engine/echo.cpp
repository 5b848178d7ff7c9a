// Assembles a program, runs it with a line of input and prints what it has written.
#include <engine/Machine.h>

#include <iostream>

int main() {
  using namespace zelvaro::engine;
  const Assembled a = assemble("ECHO START\n IN B,L\n OUT B,L\n RET\nB DS 256\nL DS 1\n END\n");
  for (const Finding& f : a.findings()) std::cerr << f.printed.en;
  if (!a.ok()) return 1;
  Machine m(a);
  m.giveLine("Hello");
  const Halt halt = m.run(1'000'000);
  for (const Event& e : m.events())
    if (e.kind == Event::Kind::Out) std::cout << e.text << '\n';
  return kindOf(halt.stop) == HaltKind::End ? 0 : 2;
}
