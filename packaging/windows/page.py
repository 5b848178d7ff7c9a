#!/usr/bin/env python3
"""Makes a page for a browser out of a guide: packaging/windows/page.py GUIDE.en.md >GUIDE.en.html

The page is one file in UTF-8 and says so, has an anchor for each heading, and names other guides by their pages. cmark-gfm
does the conversion. Status 1 if a link leads to no heading of the page.
"""

import html
import re
import subprocess
import sys
import urllib.parse
from pathlib import Path

STYLE = """body { max-width: 46em; margin: 2em auto; padding: 0 1em; line-height: 1.5;
  font-family: "Segoe UI", "Yu Gothic UI", Meiryo, sans-serif }
code, pre { font-family: Consolas, monospace }
:lang(ja) code, :lang(ja) pre { font-family: "MS Gothic", "BIZ UDGothic", monospace }
pre { padding: .6em; overflow: auto; background: #f2f2f2; line-height: 1.25 }
table { border-collapse: collapse } td, th { border: 1px solid #aaa; padding: .2em .6em; vertical-align: top }
img { max-width: 100% }
@media (prefers-color-scheme: dark) { body { background: #1c1c1c; color: #ddd } pre { background: #2a2a2a }
  a { color: #8ab4f8 } }"""


def anchor(heading):
    """The name that the links of the guides use for a heading."""
    text = html.unescape(re.sub(r"<[^>]*>", "", heading)).lower()
    return re.sub(r"[^\w -]", "", text).replace(" ", "-")


def joined(body):
    """Without the line ends inside Japanese text, which a browser may show as blanks."""
    wide = "[\u3000-\u9fff\uff00-\uffef]"
    parts = re.split(r"(<pre>.*?</pre>)", body, flags=re.S)
    return "".join(part if part.startswith("<pre>") else re.sub(f"(?<={wide})\n(?={wide})", "", part) for part in parts)


def main():
    guide = Path(sys.argv[1])
    body = subprocess.run(["cmark-gfm", "--extension", "table", guide], stdout=subprocess.PIPE, check=True).stdout.decode()
    body = joined(body)
    body = re.sub(r"<h([1-3])>(.*?)</h\1>", lambda m: f'<h{m[1]} id="{anchor(m[2])}">{m[2]}</h{m[1]}>', body)
    body = re.sub(r'href="([\w.]+)\.md"', r'href="\1.html"', body)
    title = re.search(r"<h1[^>]*>(.*?)</h1>", body)[1]
    language = guide.suffixes[0][1:]
    sys.stdout.buffer.write(f"""<!DOCTYPE html>
<html lang="{language}">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{title}</title>
<style>
{STYLE}
</style>
</head>
<body>
{body}</body>
</html>
""".replace("\n", "\r\n").encode())
    names = set(re.findall(r' id="([^"]*)"', body))
    dead = [link for link in re.findall(r'href="#([^"]*)"', body) if urllib.parse.unquote(link) not in names]
    if dead:
        sys.exit(f"{guide}: no heading for {', '.join(dead)}")


if __name__ == "__main__":
    main()
