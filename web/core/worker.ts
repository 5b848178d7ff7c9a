/** Answers the page's calls (protocol.ts) with the core. */
import type { Answer, Ask, Call, Encoding, Go, LineCount, Pipeline, Reply, Request, Source, State } from "../page/protocol.js";
import { Runner } from "./runner.js";
import { Core } from "./wasm.js";

const PIPELINES: Pipeline[] = ["WP", "NWW", "NwW", "NaW", "AP", "NA", "NH"];
const ENCODINGS: Encoding[] = ["auto", "utf-8", "cp932", "utf-16"];
const KINDS: Go["kind"][] = ["run", "to", "step", "over", "out", "back", "goTo", "backToChange"];

type Answers = { [C in Call]: (ask: Ask<C>) => Answer<C> | Promise<Answer<C>> };

/** All calls but those that are answered by the run itself. */
function answersOf(core: Core, runner: Runner): Answers {
  /** Gives a source to the core; returns its pipeline and its encoding as the core's calls take them. */
  const giveSource = (s: Source): [number, number] => {
    core.give(0, s.text);
    core.give(1, s.name ?? "source.txt");
    const encoding = typeof s.text === "string" ? "utf-8" : (s.encoding ?? "auto");
    return [PIPELINES.indexOf(s.pipeline ?? "WP"), ENCODINGS.indexOf(encoding)];
  };
  return {
    check: (s) => core.json("zCheck", ...giveSource(s)),
    load: (s) => {
      runner.end();
      const loaded = core.json<Answer<"load">>("zLoad", ...giveSource(s));
      return { ...loaded, image: Uint16Array.from(loaded.image) };
    },

    go: (go) => {
      if (runner.isRunning) throw new Error("a run is under way");
      core.run("zBegin", KINDS.indexOf(go.kind), go.steps ?? 1, go.address ?? -1, go.line ?? 0);
      const isSlow = go.kind === "run" || go.kind === "to" || go.kind === "over" || go.kind === "out";
      return runner.start(isSlow ? (go.stepsPerSecond ?? 0) : 0);
    },
    pause: () => {
      runner.end();
      return null;
    },
    speed: ({ stepsPerSecond }) => {
      runner.setSpeed(stepsPerSecond);
      return null;
    },
    state: () => core.json("zState"),
    memory: ({ from, count }) => core.json("zMemory", from, count),
    counts: () => core.json("zCounts", 0),
    breakpoints: ({ lines }) => {
      core.give(0, new Uint8Array(Int32Array.from(lines).buffer));
      return core.json("zBreakpoints");
    },
    giveLine: ({ line }) => {
      core.give(0, line);
      core.run("zGiveLine");
      return null;
    },
    endInput: () => {
      core.run("zEndInput");
      return null;
    },
    forgetFuture: () => {
      core.run("zForgetFuture");
      return null;
    },
    addressOf: ({ place }) => {
      core.give(0, place);
      return core.json("zAddressOf");
    },
    report: ({ which, language, date: d, hint }) => {
      const date = Int32Array.of(d.year, d.month, d.day, d.weekday, d.hour, d.minute, d.second);
      core.give(0, new Uint8Array(date.buffer));
      return core.bytes("zReport", which === "after", language === "ja", hint ?? true);
    },

    instructions: () => core.json("zInstructions"),
    decode: ({ bytes, encoding, name }) => {
      core.give(0, bytes);
      core.give(1, name ?? "source.txt");
      return core.json("zDecode", ENCODINGS.indexOf(encoding ?? "auto"));
    },
    encode: ({ text, encoding }) => {
      if (encoding === "utf-8") return { bytes: new TextEncoder().encode(text), lacking: [] };
      core.give(0, text);
      return { bytes: core.bytes("zEncode"), lacking: core.json("zLacking") };
    },
    grade: ({ task, driver, source }) => {
      core.give(0, driver ?? "");
      core.run("zDriver");
      const [pipeline, encoding] = giveSource(source);
      core.give(2, task);
      return core.json("zGrade", pipeline, encoding);
    },
  };
}

const reply = (r: Reply) => self.postMessage(r);

function listen(core: Core): (request: Request) => Promise<void> {
  const runner = new Runner({
    slice: (steps) => core.json<boolean>("zSlice", steps),
    pause: () => core.run("zPause"),
    state: () => core.json<State>("zState"),
    hottest: (most) => core.json<LineCount[]>("zCounts", most),
    progress: (progress) => reply({ progress }),
  });
  const answers = answersOf(core, runner);
  return async ({ id, call, ask }) => {
    try {
      const answer = answers[call] as (ask: unknown) => unknown;
      reply({ id, value: await answer(ask) });
    } catch (e) {
      reply({ id, error: e instanceof Error ? e.message : String(e) });
    }
  };
}

/** The first message is the core's bytes; requests that come before it has started wait for it. */
let listening: Promise<(request: Request) => Promise<void>> | undefined;
self.onmessage = (e: MessageEvent<{ core: Uint8Array<ArrayBuffer> } | Request>) => {
  const message = e.data;
  if ("core" in message) {
    listening = Core.start(message.core).then(listen);
  } else {
    listening?.then((answer) => answer(message)).catch((error) => reply({ id: message.id, error: String(error) }));
  }
};
