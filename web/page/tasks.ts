// The tasks of workspace/tasks: their text is the comment at the head of the file, English lines first.
import greet from "../../workspace/tasks/greet/task.toml";
import multDriver from "../../workspace/tasks/mult/driver.txt";
import mult from "../../workspace/tasks/mult/task.toml";
import sum from "../../workspace/tasks/sum/task.toml";
import type { Lesson } from "./lessons.js";
import { skeleton } from "./skeleton.js";

function lessonOf(id: string, task: string, driver?: string): Lesson {
  const all = task.split("\n");
  const lines = all.slice(0, all.findIndex((line) => !line.startsWith("#"))).map((line) => line.replace(/^# ?/, ""));
  const isJapanese = (line: string): boolean => /[\u3040-\u30ff\u4e00-\u9fff]/.test(line);
  const [en = id, ja = en] = (/^title = "(.*)"$/m.exec(task)?.[1] ?? id).split(" / ");
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

export const tasks: Lesson[] = [lessonOf("greet", greet), lessonOf("sum", sum), lessonOf("mult", mult, multDriver)];
