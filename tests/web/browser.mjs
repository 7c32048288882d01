// SPDX-License-Identifier: GPL-3.0-or-later
//
// What all tests of the page share: the finished page in Debian's Chromium, without a network.
import assert from "node:assert/strict";
import { createRequire } from "node:module";
import { after, afterEach, before } from "node:test";
import { fileURLToPath, pathToFileURL } from "node:url";

const fromWeb = createRequire(new URL("../../web/package.json", import.meta.url));
const { chromium } = fromWeb("playwright-core");

export const AXE_FILE = fromWeb.resolve("axe-core/axe.min.js");
export const PROJECT = fileURLToPath(new URL("../../", import.meta.url));
export const PAGE_FILE = process.env.WYBETA_PAGE ?? `${PROJECT}build/web/wy-beta.html`;

const ENGLISH = { locale: "en-GB", colorScheme: "light", viewport: { width: 1200, height: 800 } };

let browser;
let context;
let errors = [];

/** Runs the browser for the tests of a suite. Any error in the page's scripts fails the test. */
export function useBrowser() {
  before(async () => {
    browser = await chromium.launch({
      executablePath: process.env.CHROMIUM_PROGRAM ?? "/usr/bin/chromium",
      args: ["--no-sandbox"], // which a container does not have
    });
  });
  afterEach(() => assert.deepEqual(errors.splice(0), []));
  after(() => browser.close());
}

/** Opens the page in a window of its own, in place of the one before. */
export async function openPage(options = {}) {
  await context?.close();
  context = await browser.newContext({ ...ENGLISH, offline: true, ...options });
  const page = await context.newPage();
  page.setDefaultTimeout(10_000);
  page.on("pageerror", (error) => errors.push(error.message));
  page.on("console", (message) => {
    if (message.type() === "error") {
      errors.push(message.text());
    }
  });
  await page.goto(pathToFileURL(PAGE_FILE).href);
  await page.waitForSelector("[data-note]");
  return page;
}

/** For tests in which the page is driven to an error. */
export function forgetErrors() {
  errors = [];
}

/** A song of the simulated editor; its notes follow each other, a quarter note each, unless they say more. */
export function songOf(tracks, more = {}) {
  const noteOf = (note, start) => ({ start, length: 1, pitch: 60, lyric: "", typed: false, ...note });
  return {
    format: "wysim song 1", title: "", beats: 4, beatType: 4, pickup: 0, ...more,
    tracks: tracks.map((notes, i) => ({ name: `Singer ${i + 1}`, notes: notes.map(noteOf) })),
  };
}

export function emptyNotes(count) {
  return Array.from({ length: count }, () => ({}));
}

/** Opens a song by the file input, as the button does. */
export async function openSong(page, song, name = "song.json") {
  const buffer = Buffer.from(typeof song === "string" ? song : JSON.stringify(song));
  await openFile(page, { name, mimeType: "application/octet-stream", buffer });
}

/**
 * Opens a file, by its path or as it is, and lets go of a song with changes; ends when the page has
 * told what came of it.
 */
export async function openFile(page, file) {
  await chooseFile(page, file);
  if (await page.locator("dialog").isVisible()) {
    await button(page, "Open without saving").or(button(page, "保存せずに開く")).click();
  }
  await page.waitForFunction(() => document.querySelector("[role=status]").textContent !== "");
}

/** Chooses a file to open; ends when the page has told or asked something. */
export async function chooseFile(page, file) {
  await page.evaluate(() => document.querySelector("[role=status]").replaceChildren());
  await page.locator("#open-file").setInputFiles(file);
  await page.waitForFunction(() =>
    document.querySelector("[role=status]").textContent !== "" || document.querySelector("dialog[open]"));
}

export function noteAt(page, note, track = 1) {
  return page.locator(`[data-track="${track}"][data-note="${note}"]`);
}

export function button(page, name) {
  return page.getByRole("button", { name, exact: true });
}

/** Types a lyric into a note as a person does. */
export async function type(page, note, lyric, track = 1) {
  await noteAt(page, note, track).click();
  await page.locator("#lyric").fill(lyric);
  await page.locator("#lyric").press("Enter");
}

/** Brings up all that the page can show at once. */
export async function showEverything(page) {
  await openSong(page, songOf([emptyNotes(12), [{ start: 0 }, { start: 1000 }]]));
  await type(page, 1, "Hello xyzzy");
  await type(page, 4, "xyzzy");
  await type(page, 5, "the beutiful cat");
  await page.locator("summary").click();
  await page.locator("#save").click();
}

/** What the notes of a track carry, one after the other. */
export function lyrics(page, track = 1) {
  return page.locator(`[data-track="${track}"][data-note]`)
    .evaluateAll((notes) => notes.map((note) => note.dataset.lyric));
}

/** The lyrics without the empty notes at the end. */
export async function carried(page, track = 1) {
  const all = await lyrics(page, track);
  return all.slice(0, all.findLastIndex((lyric) => lyric !== "") + 1);
}

export function status(page) {
  return page.getByRole("status").innerText();
}

/** The note that has the focus, as its track and its number. */
export function focusedNote(page) {
  return page.evaluate(() => {
    const { track, note } = document.activeElement.dataset;
    return note === undefined ? undefined : [Number(track), Number(note)];
  });
}
