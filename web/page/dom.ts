// Elements of the page.  Text is only ever set as text: nothing here parses markup.

type Child = Node | string | null | undefined;
type Props = { [name: string]: string | number | boolean | ((event: Event) => void) | undefined };

/// Creates an element.  A property that begins with "on" is a listener, `false` leaves an attribute out.
export function el<K extends keyof HTMLElementTagNameMap>(
  tag: K,
  props: Props = {},
  ...children: Child[]
): HTMLElementTagNameMap[K] {
  const node = document.createElement(tag);
  for (const [name, value] of Object.entries(props)) {
    if (typeof value === "function") node.addEventListener(name.slice(2), value);
    else if (value === true) node.setAttribute(name, "");
    else if (value !== false && value !== undefined) node.setAttribute(name, String(value));
  }
  node.append(...children.filter((c): c is Node | string => c !== null && c !== undefined));
  return node;
}

/// Sets the text of a node if it differs, so that nothing is laid out again without need.
export function setText(node: Node, text: string): void {
  if (node.textContent !== text) node.textContent = text;
}

const kSvg = "http://www.w3.org/2000/svg";

/// A picture of 16 by 16 made of one path.  It is decoration: the button around it has the name.
export function icon(path: string): SVGSVGElement {
  const svg = document.createElementNS(kSvg, "svg");
  svg.setAttribute("viewBox", "0 0 16 16");
  svg.setAttribute("aria-hidden", "true");
  svg.setAttribute("class", "icon");
  const shape = document.createElementNS(kSvg, "path");
  shape.setAttribute("d", path);
  svg.append(shape);
  return svg;
}

/// Offers bytes or text for download.
export function download(name: string, parts: BlobPart[], type: string): void {
  const url = URL.createObjectURL(new Blob(parts, { type }));
  const link = el("a", { href: url, download: name });
  document.body.append(link);
  link.click();
  link.remove();
  setTimeout(() => URL.revokeObjectURL(url), 10_000);
}
