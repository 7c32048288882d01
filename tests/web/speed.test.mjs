// SPDX-License-Identifier: GPL-3.0-or-later
//
// Machines differ, so times are told and not held to; what is held is that little is drawn anew.
import assert from "node:assert/strict";
import { describe, it } from "node:test";
import { button, lyrics, noteAt, openPage, openSong, songOf, useBrowser } from "./browser.mjs";

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

describe("A text of 600 lines", () => {
  useBrowser();

  it("is counted after each key, and laid under 5,000 notes, without much being drawn anew", async (test) => {
    const page = await openPage();
    await openSong(page, songOf([Array.from({ length: NOTES }, (_, i) => ({ start: i + Math.floor(i / 8) }))]));
    await button(page, "Words").click();
    const first = await page.evaluate(writeAndWait, "twinkle twinkle little star now\n".repeat(600));
    test.diagnostic(`counted after ${first.took} ms`);
    const keys = [];
    for (const letter of "abcdefgh") {
      await page.waitForTimeout(200);
      keys.push(await page.evaluate(typeAndWait, letter));
    }
    test.diagnostic(`counted after a key: ${keys.map(({ took }) => took).join(", ")} ms`);
    assert.ok(keys.every(({ drawn }) => drawn <= 2), `drawn: ${keys.map(({ drawn }) => drawn)}`);
    const laid = await timeOf(async () => {
      await page.locator("#words").press("Control+Enter");
      await page.waitForFunction(() => document.querySelector("#sheet").hidden);
      await page.evaluate(() => new Promise(requestAnimationFrame));
    });
    test.diagnostic(`laid after ${laid} ms`);
    assert.ok((await lyrics(page)).filter((lyric) => lyric !== "").length >= 4700);
  });
});

/** Puts a text into the sheet: the time until it is counted and drawn. */
async function writeAndWait(text) {
  const field = document.querySelector("#words");
  field.value = text;
  field.focus();
  field.setSelectionRange(0, 0);
  const start = performance.now();
  field.dispatchEvent(new Event("input"));
  await new Promise((resolve) =>
    new MutationObserver(resolve).observe(document.querySelector("#lines"), { childList: true }));
  await new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve)));
  return { took: Math.round(performance.now() - start) };
}

/** Types a word in the page itself: the time until it is counted and drawn, and how many rows are new. */
async function typeAndWait(letter) {
  let drawn = 0;
  const counted = new Promise((resolve) => new MutationObserver((records) => {
    drawn += records.reduce((sum, { addedNodes }) => sum + addedNodes.length, 0);
    resolve();
  }).observe(document.querySelector("#lines"), { childList: true }));
  const start = performance.now();
  document.execCommand("insertText", false, `${letter} `);
  await counted;
  await new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve)));
  return { took: Math.round(performance.now() - start), drawn };
}

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
