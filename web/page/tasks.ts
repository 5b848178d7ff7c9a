// The tasks of workspace/tasks, and a teacher's own: the text is the comment at the head of the file, English lines first.
import greet from "../../workspace/tasks/greet/task.toml";
import multDriver from "../../workspace/tasks/mult/driver.txt";
import mult from "../../workspace/tasks/mult/task.toml";
import sum from "../../workspace/tasks/sum/task.toml";
import type { Lesson } from "./lessons.js";
import { skeleton } from "./skeleton.js";

/// A task as a link carries it: its name, the TOML of zelvaro-check, and the text of its driver.
export interface TaskFile {
  name: string;
  toml: string;
  driver?: string;
}

/// A task as a lesson. What is wrong in its TOML is reported when the task marks a program.
export function lessonOfTask({ name: id, toml: task, driver }: TaskFile): Lesson {
  const all = task.split(/\r?\n/);
  const end = all.findIndex((line) => !line.startsWith("#"));
  const lines = all.slice(0, end < 0 ? all.length : end).map((line) => line.replace(/^# ?/, ""));
  const isJapanese = (line: string): boolean => /[\u3040-\u30ff\u4e00-\u9fff]/.test(line);
  const [en = id, ja = en] = (/^title *= *"(.*)"\r?$/m.exec(task)?.[1] ?? id).split(" / ");
  return {
    id,
    title: { en, ja },
    text: {
      en: [lines.filter((line) => !isJapanese(line)).join(" ")],
      ja: [lines.filter(isJapanese).join("")],
    },
    program: skeleton,
    task,
    ...(driver === undefined ? {} : { driver }),
  };
}

export const tasks: Lesson[] = [
  lessonOfTask({ name: "greet", toml: greet }),
  lessonOfTask({ name: "sum", toml: sum }),
  lessonOfTask({ name: "mult", toml: mult, driver: multDriver }),
];
