/**
 * What the page asks the worker and what the worker answers. The worker holds the core; the page has no rule of the
 * language or of the machine of its own. All values can be sent by postMessage. There is one source and one machine
 * at a time: `load` replaces them.
 *
 * Lines and columns count from 1, 0 means none. Addresses are 0 to 65535. Words are unsigned, 0 to 65535.
 */

export type Language = "ja" | "en";
/** One text in both languages. */
export type Text = Record<Language, string>;

export type Pipeline = "WP" | "NWW" | "NwW" | "NaW" | "AP" | "NA" | "NH";
export type Encoding = "auto" | "utf-8" | "cp932" | "utf-16";

/** A text of the editor, or the bytes of a file. */
export interface Source {
  text: string | Uint8Array;
  /** Without it, WP. */
  pipeline?: Pipeline;
  /** Of bytes; without it, "auto". A string is always UTF-8. */
  encoding?: Encoding;
  /** The file's name in messages and reports; without it, "source.txt". */
  name?: string;
}

// --- what a source gives ---

export type Severity = "error" | "warning" | "note" | "memo" | "notice";

/** Where a message belongs: `line` is 0 if it has none. */
export interface Place {
  line: number;
  /** In code points, as the checker counts; 0 if the message quotes nothing, or something that occurs twice. */
  column: number;
  length: number;
  /** The same as offsets in the line in UTF-16 units, from 0, `to` exclusive: the whole line if column is 0. */
  from: number;
  to: number;
}

/** A message of the core, in the order in which it was issued. A "notice" says what was read and how. */
export interface Finding extends Place {
  code: string;
  severity: Severity;
  /** It is in the tallies. */
  counted: boolean;
  /** It adds lines to the finding before it. */
  continues: boolean;
  /** Another line that the message names; 0 if there is none. */
  secondLine: number;
  quoted: string;
  /** The words, without head and quoted text. */
  text: Text;
  /** As the dialogue prints it, with head and line ends. */
  printed: Text;
}

/** A remark on what may be the cause of a fault. No tally counts it. */
export interface Hint extends Place {
  code: string;
  text: Text;
}

export interface Tallies {
  errors: number;
  warnings: number;
  notes: number;
  memos: number;
}

export interface Program {
  name: string;
  address: number;
  /** In words, literals included. */
  size: number;
  startLine: number;
  endLine: number;
}

export interface Label {
  /** Index of the program. */
  program: number;
  name: string;
  address: number;
  line: number;
}

export type Outcome = "assembled" | "faulty" | "notLoaded" | "noMemory";

/** What a check gives. `programs` and `labels` are empty unless it is assembled. */
export interface Check {
  outcome: Outcome;
  /** The encoding that was found; "auto" if nothing was loaded. */
  encoding: Encoding;
  /** Its name as the dialogue reports it; empty for a pipeline that reports none. */
  encodingName: string;
  tallies: Tallies;
  findings: Finding[];
  findingsLeftOut: number;
  hints: Hint[];
  programs: Program[];
  labels: Label[];
  /** The rest of a source that lacks only these words, "when END is there". Null unless some of them lack. */
  whenComplete: { added: ("START" | "RET" | "END")[]; tallies: Tallies; findings: Finding[]; hints: Hint[] } | null;
}

/** A line with a statement, or a literal, with its words. */
export interface ListingRow {
  program: number;
  line: number;
  address: number;
  words: number[];
  label: string;
  opcode: string;
  operands: string;
  /** The line; of a literal, the literal with its equal sign. */
  text: string;
}

/** What `load` gives. Without an image (outcome is not "assembled") the lists are empty and state is null. */
export interface Loaded extends Check {
  /** All lines as the pipeline reads them. The fixed form splits long ones. */
  lines: string[];
  listing: ListingRow[];
  literals: ListingRow[];
  /** The words from address 0 to the end of the last program. */
  image: Uint16Array;
  state: State | null;
}

// --- the machine ---

/** Why it rests. "Start" is step 0, "Stepped" after steps that were asked for or a step back, "Paused" by `pause`. */
export type Stop =
  | "Start" | "Stepped" | "Paused" | "End" | "Pr" | "Register" | "Load" | "Store" | "Stack" | "EmptyStack" | "Return"
  | "Nop" | "Unregistered" | "InputEnded" | "Breakpoint" | "InputWanted" | "InputExhausted" | "OutputFull";
/** "guard": the virtual OS has stopped the program. "pause": it can go on; "InputWanted" after `giveLine`. */
export type StopKind = "end" | "guard" | "pause";

export interface Change {
  place: "GR" | "PR" | "SP" | "OS" | "Overflow" | "Sign" | "Zero" | "Memory" | "Stack";
  /** Number of the GR; address in memory; of the stack, the address as SP names it. */
  index: number;
  before: number;
  after: number;
}

/** A word on the stack, the last one pushed first. */
export interface StackRow {
  /** As SP names it. */
  address: number;
  word: number;
  /** For a return address that a CALL has pushed: the depth of that CALL from 1, the line of the CALL. Else 0. */
  depth: number;
  callLine: number;
}

export interface State {
  steps: number;
  stop: Stop;
  kind: StopKind;
  /** The words of the stop; empty unless it is a guard, the end of the input or full output. */
  messages: Finding[];
  /** The line of the instruction at PR, 0 for none. At a guard it is where the program has stopped. */
  line: number;
  gr: number[];
  /** May exceed 65535. */
  pr: number;
  sp: number;
  /** Nesting depth of CALL. */
  os: number;
  overflow: boolean;
  sign: boolean;
  zero: boolean;
  effectiveAddress: number;
  /** What the last step has changed; empty after more than one. */
  changes: Change[];
  /** At most the 256 words pushed last; `stackSize` is their whole number. */
  stack: StackRow[];
  stackSize: number;
  linesRead: number;
  /** Lines given, of which those after linesRead wait; after a step back, they come again. */
  linesGiven: number;
  /** What the run has written and read: replace what the page has from index `from` on by `list`. */
  events: { from: number; list: Event[] };
}

export interface Event {
  /** "out": what OUT has written, without its line end. "in": the line that IN has read. "message": as a warning. */
  kind: "out" | "in" | "message";
  /** The number of the step that did it, from 1. */
  step: number;
  text: string;
  message?: Finding;
}

/** A row of memory. The five views of the word are made of `word`: the page formats numbers. */
export interface MemoryRow {
  address: number;
  word: number;
  /** How often its instruction has been executed. */
  count: number;
  line: number;
  /** Those of the address, joined by blanks. */
  label: string;
  /** Of the first word of a statement or literal: its text without label and comment. */
  statement: string;
}

/** How a run goes. It ends at the stop, and never before breakpoints that it meets. */
export interface Go {
  /**
   * "run" to the end, or the next stop. "to": until PR is at `address`, or at the first address of `line`. "step":
   * `steps` instructions (1). "over": one, a CALL with all that it calls, an IN or another macro as a whole. "out": until the subroutine has returned.
   * "back": `steps` back (1). "goTo": to the state after `steps` steps. "backToChange": to the state after the last
   * step before the present state that changed the word at `address` (or to step 0).
   */
  kind: "run" | "to" | "step" | "over" | "out" | "back" | "goTo" | "backToChange";
  steps?: number;
  address?: number;
  line?: number;
  /** Steps a second for "run", "to", "over" and "out"; without it, or 0, as fast as possible. May be changed by `speed`. */
  stepsPerSecond?: number;
}

/** While a run lasts: at most 60 times a second in slow motion, about 8 times a second at full speed. */
export interface Progress {
  state: State;
  /** Steps a second, measured. */
  perSecond: number;
  /** The lines whose instructions were executed most often, at most five, the hottest one first. */
  hottest: LineCount[];
}
export interface LineCount {
  line: number;
  count: number;
}

// --- the rest ---

/** A row of the instruction table. */
export interface Instruction {
  mnemonic: string;
  kind: "assembler" | "machine" | "macro";
  /** The forms of its operands: ["r,adr[,x]", "r1,r2"]. [""] takes none. */
  forms: string[];
  /** Operation codes of these forms; 0 for none. */
  codes: number[];
  /** What it is called, empty for one without a name. */
  name: Text;
  /** A formula: u() unsigned, s() signed, EA the effective address, m Memory[EA] or GR[x], F sets sign and zero. */
  effect: string;
  /** Known to the pipeline NH only. */
  nhOnly: boolean;
}

/** A character that the encoding lacks. */
export interface Lacking {
  character: string;
  line: number;
  /** Offset in the line in UTF-16 units. */
  from: number;
}

export interface GradeCase {
  name: string;
  hidden: boolean;
  passed: boolean;
  points: number;
  of: number;
  /** Why it has not passed. */
  reasons: Text[];
}
export interface Grade {
  title: string;
  points: number;
  of: number;
  /** Why nothing was run: the task, errors of the source, a rule. */
  fault: Text | null;
  cases: GradeCase[];
}

/** The local time in a report's head. */
export interface ReportDate {
  year: number;
  month: number;
  day: number;
  /** 0 is Sunday. */
  weekday: number;
  hour: number;
  minute: number;
  second: number;
}

/** All calls: argument and answer. */
export interface Calls {
  /** Checks a source; leaves the machine alone. */
  check: [Source, Check];
  /** Checks a source and, if it is assembled, puts it into a machine at step 0. Ends a run of the one before. */
  load: [Source, Loaded];

  /** Answers when the machine rests again. A second `go` during a run is refused. Needs an image. */
  go: [Go, State];
  /** Ends a run; it answers its `go` with "Paused". */
  pause: [null, null];
  speed: [{ stepsPerSecond: number }, null];
  /** May be asked during a run, as all below: it is answered between two slices of the run. */
  state: [null, State];
  memory: [{ from: number; count: number }, MemoryRow[]];
  /** How often the instructions of each line were executed, without lines of 0. */
  counts: [null, LineCount[]];
  /** Replaces all breakpoints. Answers the lines that have an instruction. They are kept by `load`. */
  breakpoints: [{ lines: number[] }, number[]];
  /** A line for IN. Given after a step back to before lines that were read, it comes after them. */
  giveLine: [{ line: string }, null];
  /** No more lines come. */
  endInput: [null, null];
  /** Forgets lines and output after the present state, so that IN asks anew. */
  forgetFuture: [null, null];
  /** The address of "16", "0x10", "#0010", a label, "PROGRAM.LABEL"; -1 for none. */
  addressOf: [{ place: string }, number];
  /** The report before the run or after it, the bytes of the dialogue's file (UTF-8). */
  report: [{ which: "before" | "after"; language: Language; date: ReportDate; hint?: boolean }, Uint8Array];

  instructions: [null, Instruction[]];
  /** The text of a file in any encoding. `refusal` is null or says why it is not opened: too large, no text. */
  decode: [{ bytes: Uint8Array; encoding?: Encoding; name?: string },
           { text: string; encoding: Encoding; encodingName: string; refusal: Text | null }];
  /** The bytes of a text. Characters that the encoding lacks become '?' and are named, at most 100 of them. */
  encode: [{ text: string; encoding: "utf-8" | "cp932" }, { bytes: Uint8Array; lacking: Lacking[] }];
  /** Marks a source by a task (TOML) and the text of its driver. */
  grade: [{ task: string; driver?: string; source: Source }, Grade];
}
export type Call = keyof Calls;
export type Ask<C extends Call> = Calls[C][0];
export type Answer<C extends Call> = Calls[C][1];

/** A message to the worker. */
export interface Request<C extends Call = Call> {
  id: number;
  call: C;
  ask: Ask<C>;
}
/** A message from it. An error is a fault of the program or a lack of memory, in English. */
export type Reply =
  | { id: number; value: unknown }
  | { id: number; error: string }
  | { progress: Progress };

/** A source of more bytes is refused by `decode`, `check` and `load`. */
export const MOST_BYTES = 8 * 1024 * 1024;
