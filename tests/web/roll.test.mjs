// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { before, describe, it } from "node:test";
import {
  emptyNotes, focusedNote, lyrics, noteAt, openPage, openSong, songOf, type, useBrowser,
} from "./browser.mjs";

const note = (start, lyric = "", more = {}) => ({ start, lyric, typed: lyric !== "", ...more });

describe("The roll", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });

  const bars = () => page.locator(".bar").allInnerTexts();
  const box = (number, track = 1) => noteAt(page, number, track).boundingBox();

  it("draws notes by their time, their length and their pitch", async () => {
    await openSong(page, songOf([[{ start: 0 }, { start: 1, length: 2, pitch: 64 }]]));
    const [first, second] = [await box(1), await box(2)];
    assert.ok(Math.abs(first.x + first.width - second.x) < 1);
    assert.ok(Math.abs(2 * first.width - second.width) < 1);
    assert.ok(first.y > second.y);
    assert.match(await noteAt(page, 2).getAttribute("aria-label"), /E4, bar 1/);
  });

  it("numbers its bars, and has number 0 for an incomplete one", async () => {
    await openSong(page, songOf([emptyNotes(12)]));
    assert.deepEqual((await bars()).slice(0, 3), ["1", "2", "3"]);
    await openSong(page, songOf([emptyNotes(12)], { pickup: 1 }));
    assert.deepEqual((await bars()).slice(0, 3), ["0", "1", "2"]);
  });

  it("breaks a song into rows that the window has room for", async () => {
    await openSong(page, songOf([emptyNotes(40)]));
    const rowsAt = async (width) => {
      await page.setViewportSize({ width, height: 800 });
      await page.waitForTimeout(100);
      return page.locator(".row").count();
    };
    const [narrow, wide] = [await rowsAt(400), await rowsAt(1200)];
    assert.ok(narrow > wide, `${narrow} rows, ${wide} rows`);
    assert.equal(await page.locator("[data-note]").count(), 40);
  });

  it("keeps the text field over its note when the window changes", async () => {
    await openSong(page, songOf([emptyNotes(40)]));
    await noteAt(page, 20).click();
    await page.setViewportSize({ width: 700, height: 800 });
    await page.waitForTimeout(100);
    const [field, note] = [await page.locator("#lyric").boundingBox(), await box(20)];
    await page.setViewportSize({ width: 1200, height: 800 });
    assert.ok(Math.abs(field.y - note.y) < 20, `field at ${field.y}, note at ${note.y}`);
  });

  it("draws a note that is held over the end of a row in both rows", async () => {
    await openSong(page, songOf([[{ start: 0, length: 100 }]]));
    assert.equal(await page.locator("[data-note]").count(), 1);
    assert.ok(await page.locator(".held").count() >= 1);
    await type(page, 1, "love");
    assert.equal(await page.locator(".held").first().getAttribute("data-kind"), "word");
  });

  it("shows all tracks by their names", async () => {
    await openSong(page, songOf([[note(0, "love")], [note(0, "さくら"), note(1), note(2)]]));
    assert.deepEqual(await page.getByRole("heading", { level: 2 }).allInnerTexts(),
      ["Singer 1", "Singer 2"]);
    await type(page, 1, "light", 2);
    assert.deepEqual(await lyrics(page, 1), ["love[l ah v]"]);
    assert.deepEqual((await lyrics(page, 2))[0], "light[l ay t]");
  });

  it("tells words, further syllables and notes that are not sung apart by their borders", async () => {
    await openSong(page, songOf([emptyNotes(8)]));
    await type(page, 1, "Hello");
    await type(page, 3, "xyzzy");
    const looks = await page.locator("[data-note]").evaluateAll((notes) => notes.slice(0, 4)
      .map((element) => {
        const style = getComputedStyle(element);
        return [style.borderRightStyle, style.borderLeftWidth, style.borderRadius].join(" ");
      }));
    assert.equal(new Set(looks).size, 4, looks.join(", "));
    const samples = await page.locator(".legend .sample")
      .evaluateAll((list) => list.map((sample) => sample.dataset.kind));
    assert.deepEqual(samples, ["word", "further", "word", "unsung", "empty"]);
  });

  it("marks a note as long as words of its lyric are not sung", async () => {
    await openSong(page, songOf([emptyNotes(8)]));
    const isMarked = async (number) => {
      const mark = await noteAt(page, number).evaluate((element) =>
        getComputedStyle(element, "::before").content);
      const [label, title] = await Promise.all(
        ["aria-label", "title"].map((name) => noteAt(page, number).getAttribute(name)));
      assert.equal(mark !== "none", /not sung: excelsis/.test(label));
      assert.equal(mark !== "none", /\nNot sung: excelsis$/.test(title));
      return mark !== "none";
    };
    await type(page, 1, "love excelsis light");
    await type(page, 4, "love light");
    assert.deepEqual([await isMarked(1), await isMarked(2), await isMarked(4)], [true, false, false]);
    await noteAt(page, 1).focus();
    await page.keyboard.press("Alt+ArrowUp");
    assert.ok(await isMarked(1));
    await page.keyboard.press("Delete");
    assert.ok(!await isMarked(1));
    for (let i = 0; i < 2; ++i) {
      await page.keyboard.press("Control+z");
      assert.ok(await isMarked(1));
    }
    await type(page, 1, "love light");
    assert.ok(!await isMarked(1));
    await page.keyboard.press("Control+z");
    assert.ok(await isMarked(1));
    await type(page, 1, "excelsis");
    assert.match(await noteAt(page, 1).getAttribute("aria-label"), /^excelsis, not sung, C4/);
    assert.equal(await noteAt(page, 1).getAttribute("data-kind"), "unsung");
  });

  it("goes from note to note by the arrow keys, and over rows and tracks", async () => {
    await openSong(page, songOf([emptyNotes(40), emptyNotes(3)]));
    await noteAt(page, 1).focus();
    const after = async (key) => {
      await page.keyboard.press(key);
      return focusedNote(page);
    };
    assert.deepEqual(await after("ArrowLeft"), [1, 1]);
    assert.deepEqual(await after("ArrowRight"), [1, 2]);
    const [, below] = await after("ArrowDown");
    assert.ok(Math.abs((await box(2)).x - (await box(below)).x) < 1);
    assert.ok((await box(2)).y < (await box(below)).y);
    assert.deepEqual(await after("ArrowUp"), [1, 2]);
    assert.deepEqual(await after("End"), [1, 40]);
    assert.deepEqual(await after("ArrowRight"), [1, 40]);
    assert.deepEqual(await after("ArrowDown"), [2, 1]);
    assert.deepEqual(await after("ArrowUp"), [1, 40]);
    assert.deepEqual(await after("Home"), [1, 1]);
  });

  it("is one stop of the Tab key", async () => {
    await openSong(page, songOf([emptyNotes(4), emptyNotes(4)]));
    await noteAt(page, 3).focus();
    assert.equal(await page.locator('[data-note][tabindex="0"]').count(), 1);
    await page.keyboard.press("Tab");
    assert.equal(await focusedNote(page), undefined);
    await page.keyboard.press("Shift+Tab");
    assert.deepEqual(await focusedNote(page), [1, 3]);
  });

  it("shows bars that are far away without all the empty ones between", async () => {
    await openSong(page, songOf([[{ start: 0 }, { start: 900_000 }]]));
    assert.ok(await page.locator(".row").count() < 10);
    assert.match(await page.locator(".gap").innerText(), /bars \d+ to \d+ are empty/);
    assert.match(await noteAt(page, 2).getAttribute("aria-label"), /bar 225001/);
  });

  it("opens with an example that is sung", async () => {
    page = await openPage();
    assert.ok((await lyrics(page)).every((lyric) => /\[.+\]$/.test(lyric)));
  });
});
