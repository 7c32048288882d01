// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { before, beforeEach, describe, it } from "node:test";
import {
  button, focusedNote, lyrics, noteAt, openPage, openSong, songOf, status, type, useBrowser,
} from "./browser.mjs";

// Two notes, a gap of two beats, and one more.
const SONG = songOf([[{ start: 0 }, { start: 1 }, { start: 4, length: 2, pitch: 64 }]]);

describe("A note", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });
  beforeEach(() => openSong(page, SONG));

  const box = (note) => noteAt(page, note).boundingBox();
  const count = () => page.locator("[data-note]").count();

  /** Where the notes are, as the song that is saved says. */
  async function places() {
    await button(page, "Save").click();
    const [download] = await Promise.all(
      [page.waitForEvent("download"), button(page, "Project (.json)").click()]);
    const chunks = await (await download.createReadStream()).toArray();
    const { notes } = JSON.parse(Buffer.concat(chunks).toString()).tracks[0];
    return notes.map(({ start, length, pitch }) => [start, length, pitch]);
  }

  /** Drags from a point of a note, which is a share of its width, by quarter notes and semitones. */
  async function drag(note, share, quarters, semitones) {
    const quarter = (await box(1)).width;
    const { x, y, width, height } = await box(note);
    const semitone = ((await box(1)).y - (await box(3)).y) / 4;
    const [fromX, fromY] = [x + width * share, y + height / 2];
    await page.mouse.move(fromX, fromY);
    await page.mouse.down();
    await page.mouse.move(fromX + 10, fromY, { steps: 2 });
    await page.mouse.move(fromX + quarters * quarter, fromY - semitones * semitone, { steps: 4 });
    await page.mouse.up();
  }

  async function undoesInOneStep(before) {
    await button(page, "Undo").click();
    assert.deepEqual(await places(), before);
    assert.equal(await button(page, "Undo").getAttribute("aria-disabled"), "true");
  }

  const BEFORE = [[0, 1, 60], [1, 1, 60], [4, 2, 64]];

  it("is added by a double click", async () => {
    const { x, y, width, height } = await box(2);
    await page.mouse.dblclick(x + width * 1.6, y + height / 2);
    assert.deepEqual(await places(), [[0, 1, 60], [1, 1, 60], [2.5, 1, 60], [4, 2, 64]]);
    assert.deepEqual(await noteAt(page, 3).getAttribute("data-lyric"), "");
    await undoesInOneStep(BEFORE);
  });

  it("is added behind the chosen one by a key, no longer than there is room", async () => {
    await noteAt(page, 2).focus();
    await page.keyboard.press("Shift+Enter");
    assert.deepEqual(await focusedNote(page), [1, 3]);
    await page.keyboard.press("Insert");
    await page.keyboard.press("Shift+Enter");
    assert.match(await status(page), /expected .*found/);
    assert.deepEqual(await places(),
      [[0, 1, 60], [1, 1, 60], [2, 1, 60], [3, 1, 60], [4, 2, 64]]);
  });

  it("is added behind the chosen one by a button", async () => {
    await noteAt(page, 3).focus();
    await button(page, "Add note").click();
    assert.deepEqual((await places()).at(-1), [6, 2, 64]);
  });

  it("is moved by dragging, in one edit", async () => {
    await drag(2, 0.4, 1.3, 2);
    assert.deepEqual(await places(), [[0, 1, 60], [2.25, 1, 62], [4, 2, 64]]);
    assert.equal(await page.locator("#lyric").count(), 0);
    await undoesInOneStep(BEFORE);
  });

  it("gets another number when it is dragged past its neighbour", async () => {
    await type(page, 1, "love");
    await drag(1, 0.4, 2, 0);
    assert.deepEqual(await focusedNote(page), [1, 2]);
    assert.deepEqual(await lyrics(page), ["", "love[l ah v]", ""]);
    assert.deepEqual(await places(), [[1, 1, 60], [2, 1, 60], [4, 2, 64]]);
  });

  it("is lengthened by its right end, in one edit", async () => {
    const { width } = await box(2);
    await drag(2, 1 - 4 / width, 0.5, 0);
    assert.deepEqual((await places())[1], [1, 1.5, 60]);
    await undoesInOneStep(BEFORE);
  });

  it("goes back where it was when there is no room for it", async () => {
    const before = await box(2);
    await drag(2, 0.4, -1, 0);
    assert.match(await status(page), /expected .*found/);
    assert.deepEqual(await box(2), before);
    assert.deepEqual(await places(), BEFORE);
  });

  it("can be dragged out of sight and back", async () => {
    await drag(2, 0.4, 1, -2);
    await drag(2, 0.4, -1, 2);
    assert.deepEqual(await places(), BEFORE);
  });

  it("is moved and lengthened by keys", async () => {
    await noteAt(page, 2).focus();
    for (const key of ["Alt+ArrowRight", "Alt+ArrowRight", "Alt+ArrowLeft", "Alt+ArrowUp",
      "Alt+ArrowUp", "Alt+ArrowDown", "Alt+Shift+ArrowRight", "Alt+Shift+ArrowRight",
      "Alt+Shift+ArrowLeft"]) {
      await page.keyboard.press(key);
      assert.deepEqual(await focusedNote(page), [1, 2], key);
    }
    assert.match(await status(page), /C#4, bar 1/);
    assert.deepEqual(await places(), [[0, 1, 60], [1.25, 1.25, 61], [4, 2, 64]]);
  });

  it("is deleted by a key or a button, in one edit", async () => {
    await noteAt(page, 2).focus();
    await page.keyboard.press("Delete");
    assert.deepEqual(await places(), [[0, 1, 60], [4, 2, 64]]);
    await noteAt(page, 2).focus();
    await button(page, "Delete note").click();
    assert.equal(await count(), 1);
    await button(page, "Undo").click();
    await undoesInOneStep(BEFORE);
  });

  it("leaves the focus in the roll when it is gone by an undo", async () => {
    await noteAt(page, 3).focus();
    await page.keyboard.press("Shift+Enter");
    assert.deepEqual(await focusedNote(page), [1, 4]);
    await page.keyboard.press("Control+z");
    assert.deepEqual(await focusedNote(page), [1, 3]);
    for (let i = 0; i < 4; ++i) {
      await page.keyboard.press("Alt+ArrowUp");
    }
    await page.keyboard.press("Control+z");
    assert.deepEqual(await focusedNote(page), [1, 3]);
  });

  it("can be the first of a track again when all were deleted", async () => {
    await noteAt(page, 1).focus();
    for (let i = 0; i < 3; ++i) {
      await page.keyboard.press("Delete");
    }
    assert.equal(await count(), 0);
    await button(page, "Add note").click();
    assert.deepEqual(await places(), [[0, 1, 60]]);
  });

  it("keeps its place in the order when notes around it come and go", async () => {
    await type(page, 3, "love");
    await noteAt(page, 1).focus();
    await page.keyboard.press("Delete");
    assert.deepEqual(await lyrics(page), ["", "love[l ah v]"]);
    await page.keyboard.press("Control+z");
    assert.deepEqual(await lyrics(page), ["", "", "love[l ah v]"]);
    const order = await page.locator("[data-note]")
      .evaluateAll((notes) => notes.map(({ dataset }) => dataset.note));
    assert.deepEqual(order, ["1", "2", "3"]);
  });

  it("is moved by a finger when it is chosen, and else the page is", async () => {
    const touch = (note) => noteAt(page, note)
      .evaluate((element) => getComputedStyle(element).touchAction);
    await noteAt(page, 2).focus();
    assert.equal(await touch(2), "none");
    assert.notEqual(await touch(1), "none");
  });
});
