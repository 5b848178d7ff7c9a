// Makes pictures of the page: at two widths, in both languages and themes, into a folder; with "docs" as the second
// argument also those of the guides.  `web/pictures.sh` runs it.
import { copyFile, mkdir } from "node:fs/promises";
import { Learner } from "./tests/learner.js";

const [folder = "build/web/pictures", docs] = process.argv.slice(2);
await mkdir(folder, { recursive: true });

for (const language of ["en", "ja"] as const) {
  for (const scheme of ["light", "dark"] as const) {
    for (const [width, height] of [[1280, 720], [360, 740]] as const) {
      const learner = await Learner.come({ language: language === "en" ? "en-US" : "ja-JP", scheme, width, height });
      const name = (view: string): string => `${folder}/${view}-${language}-${scheme}-${width}.png`;
      const fullPage = width < 900;
      const [samples, learn, lesson] = language === "en" ? ["Samples", "Learn", "9. A subroutine"] : ["サンプル", "学ぶ", "9. サブルーチン"];

      await learner.menu(samples, "f02comma");
      await learner.faults.first().waitFor();
      await learner.page.screenshot({ path: name("faults"), fullPage });

      await learner.menu(samples, "ex10recu");
      await learner.page.keyboard.press("Escape");
      for (let i = 0; i < 40; i++) await learner.press("step");
      await learner.page.screenshot({ path: name("run"), fullPage });
      if (docs && scheme === "light" && !fullPage) await copyFile(name("run"), `${docs}/page.${language}.png`);

      await learner.menu(learn, lesson);
      await learner.page.locator("#check-button").click();
      await learner.page.locator(".grade").waitFor();
      await learner.page.screenshot({ path: name("lesson"), fullPage });

      await learner.menu(samples, "f15loop");
      await learner.page.locator('[data-action="run"]').click();
      await learner.page.locator(".hottest button").first().waitFor();
      await learner.page.screenshot({ path: name("loop"), fullPage });
      await learner.leave();
    }
  }
}
