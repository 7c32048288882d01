// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { describe, it } from "node:test";
import {
  button, emptyNotes, lyrics, openPage, openSong, PROJECT, songOf, type, useBrowser,
} from "./browser.mjs";

/** The rows of the tables that people read, as the test of the documents finds them. */
function examples(document) {
  const script = `${PROJECT}tests/scripts/example_tables.py`;
  return JSON.parse(execFileSync("python3", [script, document], { encoding: "utf8" }));
}

describe("The examples of the tables", () => {
  useBrowser();

  // README.ja.md has the same ones, as the test of the documents holds.
  it("give on the page what the README says", async () => {
    const rows = examples("README.md");
    assert.ok(rows.length > 30);
    const page = await openPage();
    await openSong(page, songOf([emptyNotes(12)]));
    for (const [typed, carried] of rows) {
      await type(page, 1, typed);
      const filled = (await lyrics(page)).filter((lyric) => lyric !== "");
      assert.deepEqual(filled, carried, `typed: ${typed}`);
      await button(page, "Undo").click();
    }
  });
});
