// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes one HTML file of the page and of the extension: node build.mjs CORE.js PAGE.html
import { mkdir, readFile, writeFile } from "node:fs/promises";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const folder = dirname(fileURLToPath(import.meta.url));

const [coreFile, pageFile] = process.argv.slice(2);
if (pageFile === undefined) {
  console.error("build.mjs: expected the files CORE.js and PAGE.html as arguments, found fewer");
  process.exit(2);
}

const parts = {
  "/* style.css */": await bundled("style.css"),
  "/* core.js */": await readFile(coreFile, "utf8"),
  "/* page.js */": await bundled("main.js"),
};
await mkdir(dirname(pageFile), { recursive: true });
await writeFile(pageFile, withParts(await readFile(join(folder, "index.html"), "utf8")));

async function bundled(name) {
  const { outputFiles } = await build({
    absWorkingDir: folder, // no path of the machine gets into the page
    entryPoints: [name],
    bundle: true,
    minify: true,
    write: false,
    charset: "utf8",
    target: ["chrome100", "firefox100", "safari15.4"],
    legalComments: "none",
  });
  return outputFiles[0].text.trim();
}

function withParts(html) {
  return Object.entries(parts).reduce((page, [mark, text]) => {
    if (page.split(mark).length !== 2) {
      throw new Error(`expected one place for ${mark} in index.html`);
    }
    return page.replace(mark, () => insideElement(text));
  }, html);
}

// A text that would end its script element is written in another way.
function insideElement(text) {
  return text.replace(/<\/(script|style)/gi, "<\\/$1").replace(/<!--/g, "<\\!--");
}
