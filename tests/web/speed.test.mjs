// SPDX-License-Identifier: GPL-3.0-or-later
//
// Machines differ, so times are told and not held to; what is held is that little is drawn anew.
import assert from "node:assert/strict";
import { describe, it } from "node:test";
import { lyrics, noteAt, openPage, openSong, songOf, useBrowser } from "./browser.mjs";

const NOTES = 5000;

function longSong() {
  return songOf([Array.from({ length: NOTES }, (_, i) => ({
    start: i, pitch: 60 + (i % 12), lyric: i % 2 === 0 ? "Hello" : "", typed: i % 2 === 0,
  }))]);
}

describe(`A song of ${NOTES} notes`, () => {
  useBrowser();

  it("opens, and a typed lyric changes the notes that it fills alone", async (test) => {
    const page = await openPage();
    const opened = await timeOf(async () => {
      await openSong(page, longSong());
      await page.evaluate(() => new Promise(requestAnimationFrame));
    });
    test.diagnostic(`opened after ${opened} ms`);
    await noteAt(page, 2001).click();
    await page.locator("#lyric").fill("good morning");
    const { shown, changed } = await page.evaluate(typeAndWatch);
    test.diagnostic(`a lyric was shown after ${shown} ms`);
    assert.deepEqual((await lyrics(page)).slice(2000, 2003),
      ["good morning[g uh d]", "[m ao r]", "Hello[hh ah]"]);
    assert.ok(changed.length <= 4, `changed: ${changed}`);
  });
});

async function timeOf(act) {
  const start = performance.now();
  await act();
  return Math.round(performance.now() - start);
}

/** Presses Enter in the page itself: the time to the next frame, and the notes that were touched. */
async function typeAndWatch() {
  const changed = new Set();
  const observer = new MutationObserver((records) => records.forEach(({ target }) => {
    const note = (target.closest ? target : target.parentElement).closest("[data-note]");
    changed.add(note?.dataset.note);
  }));
  observer.observe(document.querySelector("#roll"),
    { subtree: true, attributeFilter: ["data-lyric", "style"], childList: true });
  const start = performance.now();
  document.querySelector("#lyric").dispatchEvent(
    new KeyboardEvent("keydown", { key: "Enter", bubbles: true, cancelable: true }));
  await new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve)));
  const shown = Math.round(performance.now() - start);
  observer.takeRecords();
  changed.delete(undefined);
  return { shown, changed: [...changed] };
}
