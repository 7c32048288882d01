// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { before, describe, it } from "node:test";
import {
  AXE_FILE, button, carried, chooseFile, emptyNotes, focusedNote, noteAt, openPage, openSong, PROJECT,
  showEverything, songOf, status, type, useBrowser,
} from "./browser.mjs";

const AXE = await readFile(AXE_FILE, "utf8");

describe("The checker of accessibility", () => {
  let page;
  useBrowser();

  /** What axe objects to, in the light and in the dark. */
  async function objections(page) {
    await page.evaluate(AXE);
    const found = [];
    for (const colorScheme of ["light", "dark"]) {
      await page.emulateMedia({ colorScheme });
      const { violations } = await page.evaluate(() => globalThis.axe.run({
        runOnly: ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice"],
      }));
      found.push(...violations.map(({ id, nodes }) =>
        `${colorScheme}: ${id}: ${nodes.map(({ html }) => html).join(" ")}`));
    }
    return found;
  }

  for (const locale of ["en-GB", "ja-JP"]) {
    it(`objects to nothing, ${locale}`, async () => {
      page = await openPage({ locale });
      await showEverything(page);
      assert.deepEqual(await objections(page), []);
      // Where letters are wide, the menu lies over the note.
      await page.locator("#save").press("Escape");
      await noteAt(page, 1).click();
      assert.deepEqual(await objections(page), []);
    });
  }

  for (const locale of ["en-GB", "ja-JP"]) {
    it(`objects to nothing in the sheet with the words, ${locale}`, async () => {
      page = await openPage({ locale });
      await openSong(page, songOf([emptyNotes(4), emptyNotes(4)]));
      await page.locator("[data-action=words]").click();
      assert.deepEqual(await objections(page), []);
      for (const text of ["love", "love\nthe beutiful yeet and more of that\nla la", "love\n".repeat(10_001)]) {
        await page.locator("#words").evaluate((field, value) => {
          field.value = value;
          field.dispatchEvent(new Event("input"));
        }, text);
        await page.waitForFunction((count) => document.querySelectorAll("[data-line]").length === count,
          text.length > 100 ? 0 : text.split("\n").length);
        assert.deepEqual(await objections(page), []);
      }
    });
  }

  it("objects to nothing in the question about unsaved changes", async () => {
    page = await openPage();
    await type(page, 1, "love");
    await chooseFile(page, `${PROJECT}wysim/songs/gloria.musicxml`);
    assert.equal(await page.getByRole("dialog").count(), 1);
    assert.deepEqual(await objections(page), []);
  });
});

describe("The page", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });

  it("says to a screen reader what is to be seen", async () => {
    await openSong(page, songOf([emptyNotes(4)], { title: "Evening song" }));
    await type(page, 1, "Hello");
    await type(page, 3, "xyzzy");
    const tree = await page.locator("body").ariaSnapshot();
    for (const line of [
      'heading "WY Beta" [level=1]', 'group "Tools"', 'button "Open"', 'button "Undo"',
      'button "Redo" [disabled]', 'button "Play"', 'button "Stop" [disabled]', 'main "Song"',
      'heading "Singer 1" [level=2]', 'listbox "Singer 1"',
      'option "Hello hh ah, C4, bar 1"', 'option "l ow, further syllable, C4, bar 1"',
      'option "xyzzy, not sung, C4, bar 1" [selected]', 'option "no lyric, C4, bar 1"',
      'list "What the notes mean"', "status:",
    ]) {
      assert.ok(tree.includes(line), `${line} in\n${tree}`);
    }
    await noteAt(page, 2).click();
    assert.equal(await page.getByRole("textbox", { name: "Lyric, C4, bar 1" }).count(), 1);
  });

  it("says to click where there is a pointer, and has no buttons for the text field", async () => {
    assert.match(await page.locator("#intro").innerText(), /^Click a note/);
    await noteAt(page, 1).click();
    assert.ok(await page.locator("#lyric-hint").isVisible());
    assert.equal(await button(page, "OK").count(), 0);
  });

  it("does all by the keyboard alone", async () => {
    await openSong(page, songOf([emptyNotes(4)]));
    const tabTo = async (name) => {
      for (let i = 0; i < 30; ++i) {
        await page.keyboard.press("Tab");
        const found = await page.evaluate(() => document.activeElement.textContent);
        if (found === name) {
          return;
        }
      }
      assert.fail(`no button ${name} is reached`);
    };
    await tabTo("Delete note");
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.ariaLabel), "Close this hint");
    await page.keyboard.press("Enter");
    assert.deepEqual(await focusedNote(page), [1, 1]);
    await page.keyboard.type("love");
    await page.keyboard.press("Enter");
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
    await tabTo("Undo");
    await page.keyboard.press("Enter");
    assert.deepEqual(await carried(page), []);
    assert.equal(await page.evaluate(() => document.activeElement.textContent), "Undo");
    await tabTo("Redo");
    await page.keyboard.press(" ");
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
    await tabTo("Save");
    await page.keyboard.press("Enter");
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.textContent), "Project (.json)");
    const use = await page.evaluate(() =>
      document.getElementById(document.activeElement.getAttribute("aria-describedby")).textContent);
    assert.match(use, /opened here or in wysim again/);
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.textContent), "Score (.musicxml)");
    await page.keyboard.press("Escape");
    assert.equal(await button(page, "Save").getAttribute("aria-expanded"), "false");
    assert.equal(await page.evaluate(() => document.activeElement.id), "save");
  });

  it("shows where the focus is, on everything that can have it", async () => {
    await noteAt(page, 1).focus();
    await page.locator("h1").click();
    const seen = new Set();
    for (let i = 0; i < 16; ++i) {
      await page.keyboard.press("Tab");
      const [name, width, style] = await page.evaluate(() => {
        const element = document.activeElement;
        const { outlineWidth, outlineStyle } = getComputedStyle(element);
        return [element === document.body ? "" : element.textContent, parseFloat(outlineWidth), outlineStyle];
      });
      if (name !== "" && !seen.has(name)) {
        assert.ok(width >= 2 && style !== "none", name);
        seen.add(name);
      }
    }
    assert.ok(seen.size > 8);
  });

  it("has no button that a click makes lose the focus", async () => {
    await openSong(page, songOf([emptyNotes(4)]));
    await type(page, 1, "light");
    await button(page, "Undo").click();
    assert.equal(await page.evaluate(() => document.activeElement.textContent), "Undo");
    await button(page, "Undo").click({ force: true });
    assert.equal(await status(page), "Undone.");
  });

  it("shows the text field in full under the buttons and above the message", async () => {
    page = await openPage({ viewport: { width: 800, height: 500 } });
    await openSong(page, songOf([emptyNotes(80)]));
    for (const number of [1, 40, 80]) {
      await noteAt(page, number).focus();
      await page.keyboard.press("Enter");
      const isOnTop = await page.locator("#lyric").evaluate((field) => {
        const { left, right, top, bottom } = field.getBoundingClientRect();
        const corners = [[left + 4, top + 4], [right - 4, top + 4], [left + 4, bottom - 4]];
        return corners.every(([x, y]) => document.elementFromPoint(x, y) === field);
      });
      assert.ok(isOnTop, `note ${number}`);
      await page.keyboard.press("Escape");
    }
  });
});
