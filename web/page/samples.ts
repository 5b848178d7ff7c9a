// The samples of workspace/src by name.
import pn100 from "../../workspace/src/pn100.txt";
import pn1000 from "../../workspace/src/pn1000.txt";
import pn3035 from "../../workspace/src/pn3035.txt";
import list792j from "../../workspace/src/list792j.txt";
import ex01loop from "../../workspace/src/example/ex01loop.txt";
import ex02arry from "../../workspace/src/example/ex02arry.txt";
import ex03echo from "../../workspace/src/example/ex03echo.txt";
import ex04strl from "../../workspace/src/example/ex04strl.txt";
import ex05mult from "../../workspace/src/example/ex05mult.txt";
import ex06stck from "../../workspace/src/example/ex06stck.txt";
import ex07call from "../../workspace/src/example/ex07call.txt";
import ex08deci from "../../workspace/src/example/ex08deci.txt";
import ex09sort from "../../workspace/src/example/ex09sort.txt";
import ex10recu from "../../workspace/src/example/ex10recu.txt";
import ex11hano from "../../workspace/src/example/ex11hano.txt";
import ex12prim from "../../workspace/src/example/ex12prim.txt";
import ex13sign from "../../workspace/src/example/ex13sign.txt";
import ex14read from "../../workspace/src/example/ex14read.txt";
import ex15hexa from "../../workspace/src/example/ex15hexa.txt";
import ex16bits from "../../workspace/src/example/ex16bits.txt";
import ex17shif from "../../workspace/src/example/ex17shif.txt";
import ex18long from "../../workspace/src/example/ex18long.txt";
import ex19mdiv from "../../workspace/src/example/ex19mdiv.txt";
import ex20comp from "../../workspace/src/example/ex20comp.txt";
import ex21find from "../../workspace/src/example/ex21find.txt";
import ex22tabl from "../../workspace/src/example/ex22tabl.txt";
import ex23self from "../../workspace/src/example/ex23self.txt";
import f01lower from "../../workspace/src/example/faults/f01lower.txt";
import f02comma from "../../workspace/src/example/faults/f02comma.txt";
import f03undef from "../../workspace/src/example/faults/f03undef.txt";
import f04zensp from "../../workspace/src/example/faults/f04zensp.txt";
import f05doubl from "../../workspace/src/example/faults/f05doubl.txt";
import f06noend from "../../workspace/src/example/faults/f06noend.txt";
import f07quote from "../../workspace/src/example/faults/f07quote.txt";
import f08semic from "../../workspace/src/example/faults/f08semic.txt";
import f09longl from "../../workspace/src/example/faults/f09longl.txt";
import f10gr8 from "../../workspace/src/example/faults/f10gr8.txt";
import f11data from "../../workspace/src/example/faults/f11data.txt";
import f12stack from "../../workspace/src/example/faults/f12stack.txt";
import f13small from "../../workspace/src/example/faults/f13small.txt";
import f14zenla from "../../workspace/src/example/faults/f14zenla.txt";
import f15loop from "../../workspace/src/example/faults/f15loop.txt";
import f16pop from "../../workspace/src/example/faults/f16pop.txt";
import f17left from "../../workspace/src/example/faults/f17left.txt";
import type { TextKey } from "./texts.js";

export interface Sample {
  name: string;
  text: string;
  /// Of the menu: the first sample of a group has it.
  group?: TextKey;
}

function group(key: TextKey, texts: Record<string, string>): Sample[] {
  return Object.entries(texts).map(([name, text], i) => ({ name, text, ...(i === 0 ? { group: key } : {}) }));
}

export const samples: Sample[] = [
  ...group("samplesFirst", { pn100, pn1000, pn3035 }),
  ...group("samplesCourse", {
    ex01loop,
    ex02arry,
    ex03echo,
    ex04strl,
    ex05mult,
    ex06stck,
    ex07call,
    ex08deci,
    ex09sort,
    ex10recu,
    ex11hano,
    ex12prim,
    ex13sign,
    ex14read,
    ex15hexa,
    ex16bits,
    ex17shif,
    ex18long,
    ex19mdiv,
    ex20comp,
    ex21find,
    ex22tabl,
    ex23self,
    list792j,
  }),
  ...group("samplesFaults", {
    f01lower,
    f02comma,
    f03undef,
    f04zensp,
    f05doubl,
    f06noend,
    f07quote,
    f08semic,
    f09longl,
    f10gr8,
    f11data,
    f12stack,
    f13small,
    f14zenla,
    f15loop,
    f16pop,
    f17left,
  }),
];
