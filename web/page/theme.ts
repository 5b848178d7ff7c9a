// Light and dark: as the system has it, unless the learner has chosen.
import { keepSettings, settings, type Settings } from "./settings.js";

type Theme = NonNullable<Settings["theme"]>;

export function applyTheme(theme: Theme = settings().theme ?? "system"): void {
  if (theme === "system") delete document.documentElement.dataset["theme"];
  else document.documentElement.dataset["theme"] = theme;
}

export function setTheme(theme: Theme): void {
  keepSettings({ theme });
  applyTheme(theme);
}
