// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { before, beforeEach, describe, it } from "node:test";
import {
  button, emptyNotes, noteAt, openPage, openSong, songOf, status, type, useBrowser,
} from "./browser.mjs";

describe("Playing", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
    await page.evaluate(recordTones);
  });
  beforeEach(() => openSong(page,
    songOf([[{ start: 0, pitch: 69 }, { start: 1, pitch: 81 }], emptyNotes(2)])));

  const lit = () => page.locator("[data-note].lit").evaluateAll((notes) =>
    notes.map(({ dataset }) => `${dataset.track}/${dataset.note}`));
  const isLit = (note) => page.waitForFunction((number) =>
    document.querySelector(`[data-track="1"][data-note="${number}"]`).classList.contains("lit"), note);
  const hasEnded = () => page.waitForFunction(() => document.querySelector(".lit") === null);

  /** Keeps the pitches that oscillators are started with. */
  function recordTones() {
    globalThis.hertz = [];
    const { start } = OscillatorNode.prototype;
    OscillatorNode.prototype.start = function (...when) {
      globalThis.hertz.push(Math.round(this.frequency.value));
      start.apply(this, when);
    };
  }

  it("sounds each note and lights it while it does", async () => {
    await page.evaluate(() => (globalThis.hertz = []));
    await button(page, "Play").click();
    await isLit(1);
    assert.deepEqual(await lit(), ["1/1", "2/1"]);
    assert.equal(await status(page), "Playing.");
    await isLit(2);
    assert.deepEqual(await lit(), ["1/2", "2/2"]);
    await hasEnded();
    assert.deepEqual(await page.evaluate(() => globalThis.hertz), [440, 262, 880, 262]);
    assert.equal(await button(page, "Stop").getAttribute("aria-disabled"), "true");
    assert.equal(await status(page), "Stopped.");
  });

  it("ends by Stop", async () => {
    await button(page, "Play").click();
    await isLit(1);
    assert.equal(await button(page, "Stop").getAttribute("aria-disabled"), "false");
    await button(page, "Stop").click();
    assert.deepEqual(await lit(), []);
    await page.waitForTimeout(700);
    assert.deepEqual(await lit(), []);
  });

  it("begins and ends by the space bar, at the chosen note", async () => {
    await noteAt(page, 2).focus();
    await page.keyboard.press(" ");
    await isLit(2);
    assert.deepEqual(await lit(), ["1/2", "2/2"]);
    await page.keyboard.press(" ");
    assert.deepEqual(await lit(), []);
  });

  it("ends when the song is changed", async () => {
    await button(page, "Play").click();
    await isLit(1);
    await type(page, 1, "love");
    assert.deepEqual(await lit(), []);
    assert.match(await status(page), /“love” is sung/);
  });
});
