// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { before, describe, it } from "node:test";
import { deflateRawSync } from "node:zlib";
import {
  button, carried, emptyNotes, lyrics, openFile, openPage, openSong, PROJECT, songOf, status, type,
  useBrowser,
} from "./browser.mjs";

const SCORE = `${PROJECT}wysim/songs/gloria.musicxml`;

/** A zip file of one entry, as compressed scores are. */
function zipOf(name, text) {
  const content = Buffer.from(text);
  const packed = deflateRawSync(content);
  const sizes = Buffer.alloc(12);
  sizes.writeUInt32LE(crc32(content), 0);
  sizes.writeUInt32LE(packed.length, 4);
  sizes.writeUInt32LE(content.length, 8);
  const words = (...values) => Buffer.from(Uint16Array.from(values).buffer);
  const local = [Buffer.from("PK\x03\x04"), words(20, 0, 8, 0, 0), sizes, words(name.length, 0),
    Buffer.from(name), packed];
  const start = Buffer.concat(local);
  const directory = Buffer.concat([Buffer.from("PK\x01\x02"), words(20, 20, 0, 8, 0, 0), sizes,
    words(name.length, 0, 0, 0, 0, 0, 0, 0, 0), Buffer.from(name)]);
  const end = Buffer.alloc(22);
  end.write("PK\x05\x06");
  end.writeUInt16LE(1, 8);
  end.writeUInt16LE(1, 10);
  end.writeUInt32LE(directory.length, 12);
  end.writeUInt32LE(start.length, 16);
  return Buffer.concat([start, directory, end]);
}

function crc32(bytes) {
  let crc = ~0;
  for (const byte of bytes) {
    crc ^= byte;
    for (let bit = 0; bit < 8; ++bit) {
      crc = (crc >>> 1) ^ (crc & 1 ? 0xedb88320 : 0);
    }
  }
  return ~crc >>> 0;
}

const BY_BRACKETS = "Fit the rest by phonemes in brackets";

describe("A song", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });

  const title = () => page.locator("#title").innerText();

  async function saved(name) {
    await button(page, "Save").click();
    const [download] = await Promise.all(
      [page.waitForEvent("download"), button(page, name).click()]);
    const chunks = await (await download.createReadStream()).toArray();
    return { name: download.suggestedFilename(), text: Buffer.concat(chunks).toString() };
  }

  /** Fits the song by a button; gives what is said of it. */
  async function fit(name) {
    await button(page, name).click();
    await page.waitForFunction(() => !/Fitting/.test(document.querySelector("[role=status]").textContent));
    return status(page);
  }

  it("is opened by the button", async () => {
    const [chooser] = await Promise.all(
      [page.waitForEvent("filechooser"), button(page, "Open").click()]);
    await chooser.setFiles(SCORE);
    await page.waitForFunction(() => document.querySelector("#title").textContent === "Gloria");
    assert.equal((await lyrics(page)).length, 11);
    assert.match(await status(page), /“Gloria” is open\. Notes: 11/);
  });

  it("is opened from every kind of file", async () => {
    const score = await readFile(SCORE);
    for (const [name, buffer] of [["a.musicxml", score], ["a.xml", score],
      ["a.mxl", zipOf("score.musicxml", score)],
      ["a.json", await readFile(`${PROJECT}wysim/songs/two-bars.json`)]]) {
      await openFile(page, { name, mimeType: "application/octet-stream", buffer });
      assert.equal(await title(), name === "a.json" ? "Hello さくら" : "Gloria", name);
    }
  });

  it("is opened by dropping it on the page", async () => {
    await openSong(page, songOf([emptyNotes(1)]));
    const text = await readFile(SCORE, "utf8");
    const files = await page.evaluateHandle((score) => {
      const transfer = new DataTransfer();
      transfer.items.add(new File([score], "gloria.musicxml"));
      return transfer;
    }, text);
    await page.dispatchEvent("main", "dragover", { dataTransfer: files });
    assert.ok(await page.locator("#drop").isVisible());
    await page.dispatchEvent("main", "drop", { dataTransfer: files });
    await page.waitForFunction(() => document.querySelector("#title").textContent === "Gloria");
    assert.ok(!await page.locator("#drop").isVisible());
  });

  it("stays open when another file can't be read, and the reason is said", async () => {
    await openFile(page, SCORE);
    await type(page, 11, "choir");
    const before = await lyrics(page);
    for (const [name, text] of [["a.json", "{"], ["a.musicxml", "<score"], ["a.mxl", "no zip"],
      ["a.txt", "Gloria"]]) {
      await openSong(page, text, name);
      assert.match(await status(page), /expected .*found/, name);
      assert.equal(await title(), "Gloria");
      assert.deepEqual(await lyrics(page), before);
    }
    await button(page, "Undo").click();
    assert.notDeepEqual(await lyrics(page), before);
  });

  it("may be opened again after it was changed", async () => {
    await openFile(page, SCORE);
    const before = await lyrics(page);
    await type(page, 1, "love");
    await openFile(page, SCORE);
    assert.deepEqual(await lyrics(page), before);
    assert.equal(await button(page, "Undo").getAttribute("aria-disabled"), "true");
  });

  it("is saved as a project that opens again", async () => {
    await openSong(page, songOf([emptyNotes(4)], { title: "Evening song" }));
    await type(page, 1, "さくら");
    const file = await saved("Project (.json)");
    assert.match(file.name, /\.json$/);
    await openSong(page, songOf([emptyNotes(1)]));
    await openSong(page, file.text, file.name);
    assert.equal(await title(), "Evening song");
    assert.deepEqual(await carried(page), ["さくら[s a]", "[k u]", "[r a]"]);
  });

  it("is called by its file when it has no title, also when it is saved", async () => {
    await openSong(page, songOf([emptyNotes(2)]), "夜の歌.v2.json");
    assert.equal(await title(), "夜の歌.v2");
    assert.match(await status(page), /“夜の歌.v2” is open/);
    await type(page, 1, "love");
    assert.equal(await title(), "夜の歌.v2");
    assert.equal((await saved("Score (.musicxml)")).name, "夜の歌.v2.musicxml");
  });

  it("is saved as a score that opens again", async () => {
    await openFile(page, SCORE);
    const file = await saved("Score (.musicxml)");
    assert.match(file.name, /\.musicxml$/);
    await openSong(page, songOf([emptyNotes(1)]));
    await openSong(page, file.text, file.name);
    assert.equal(await title(), "Gloria");
    assert.equal((await lyrics(page)).length, 11);
  });

  it("is saved as a picture", async () => {
    await openFile(page, SCORE);
    const file = await saved("Picture (.svg)");
    assert.match(file.name, /\.svg$/);
    assert.match(file.text, /^<svg [^]*Gloria[^]*<\/svg>\s*$/);
    assert.match(await status(page), /Saved as .*\.svg/);
  });

  it("is fitted to the notes of its score, in one edit", async () => {
    await openFile(page, SCORE);
    const before = await lyrics(page);
    assert.equal(await fit("Fit"), "Fitted: 2 words by hyphens, 1 word by another pronunciation. " +
      "2 words were on their notes already.");
    assert.deepEqual((await lyrics(page)).slice(0, 5),
      ["Glo--ria[g l ao]", "[-]", "[- ]", "[r iy]", "[ah]"]);
    assert.equal(await fit("Fit"), "All 5 words are on their notes.");
    await button(page, "Undo").click();
    assert.deepEqual(await lyrics(page), before);
  });

  it("is told to have no words yet when it is fitted without any", async () => {
    await openSong(page, songOf([emptyNotes(2)]));
    assert.equal(await fit("Fit"), "There are no words to fit yet.");
  });

  it("tells of words that are not sung, and goes to them", async () => {
    const score = await readFile(SCORE, "utf8");
    await openSong(page, score.replace(">our<", ">xyzzy<"), "a.musicxml");
    assert.match(await fit("Fit"), /Not fitted: 1 word\. Sing unknown words as proposed\s+"xyzzy" is not sung/);
    assert.equal(await button(page, BY_BRACKETS).count(), 0);
    await button(page, "Go to “xyzzy”").click();
    assert.equal(await page.evaluate(() => document.activeElement.dataset.note), "7");
  });

  it("has unknown words sung as proposed when asked", async () => {
    await openSong(page, songOf([[{ lyric: "yeet", typed: true }]]));
    assert.match(await fit("Fit"), /^Not fitted: 1 word\./);
    assert.equal(
      await fit("Sing unknown words as proposed"), "Fitted: 1 word by a proposed pronunciation.");
    assert.deepEqual(await lyrics(page), ["yeet[y iy t]"]);
  });

  it("is fitted by brackets when asked, where they help", async () => {
    await openSong(page, songOf([[{ lyric: "さくら", typed: true }, {}]]));
    assert.match(await fit("Fit"), /^Not fitted: 1 word\./);
    assert.equal(await fit(BY_BRACKETS), "Fitted: 1 word by brackets.");
    assert.deepEqual(await lyrics(page), ["さくら[s a]", "[k u r a]"]);
  });
});
