// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { before, beforeEach, describe, it } from "node:test";
import {
  button, carried, chooseFile, emptyNotes, noteAt, openPage, openSong, PROJECT, songOf, type, useBrowser,
} from "./browser.mjs";

const SCORE = `${PROJECT}wysim/songs/gloria.musicxml`;

describe("Changes that are not saved", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });
  beforeEach(() => openSong(page, songOf([emptyNotes(4)], { title: "Evening song" })));

  const mark = () => page.locator("#unsaved").isVisible();
  /** Ends when the song of that title is there; fails by its time limit when it does not come. */
  const titleBecomes = (title) => page.locator("#title", { hasText: title }).waitFor({ timeout: 10000 });
  const question = () => page.getByRole("dialog", { name: /changes that are not saved/ });

  async function save(name) {
    await button(page, "Save").click();
    const [download] = await Promise.all(
      [page.waitForEvent("download"), button(page, name).click()]);
    return download.suggestedFilename();
  }

  /** Whether the browser asks before the page goes; it stays then. */
  async function isHeld() {
    let asked = false;
    page.once("dialog", (dialog) => {
      asked = dialog.type() === "beforeunload";
      dialog.dismiss();
    });
    await page.reload({ timeout: 1500 }).catch(() => {});
    return asked;
  }

  it("are marked at the title until they are saved or taken back", async () => {
    assert.equal(await mark(), false);
    await type(page, 1, "love");
    assert.ok(await mark());
    assert.equal(await page.locator("#unsaved").innerText(), "unsaved");
    for (const name of ["Project (.json)", "Score (.musicxml)"]) {
      await type(page, 1, name.slice(0, 5));
      assert.ok(await mark());
      await save(name);
      assert.equal(await mark(), false, name);
    }
    await type(page, 2, "love");
    await button(page, "Undo").click();
    assert.equal(await mark(), false);
    await button(page, "Undo").click();
    assert.ok(await mark(), "what was saved is not what is there");
    await noteAt(page, 1).focus();
    await page.keyboard.press("Delete");
    await openSong(page, songOf([emptyNotes(4)]));
    assert.equal(await mark(), false);
  });

  it("stay unsaved when a picture is saved", async () => {
    await type(page, 1, "love");
    await save("Picture (.svg)");
    assert.ok(await mark());
  });

  it("are not given up for another song without a question", async () => {
    await type(page, 1, "love");
    await chooseFile(page, SCORE);
    assert.equal(await question().count(), 1);
    await button(page, "Cancel").click();
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
    await chooseFile(page, SCORE);
    await page.keyboard.press("Escape");
    assert.equal(await question().count(), 0);
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
    await chooseFile(page, SCORE);
    await button(page, "Open without saving").click();
    await titleBecomes("Gloria");
  });

  it("can be saved before the other song is opened", async () => {
    await type(page, 1, "love");
    await chooseFile(page, SCORE);
    const [download] = await Promise.all(
      [page.waitForEvent("download"), button(page, "Save the project first").click()]);
    assert.equal(download.suggestedFilename(), "Evening song.json");
    await titleBecomes("Gloria");
  });

  it("are asked for when a song is dropped, with those in the text field", async () => {
    await noteAt(page, 1).click();
    await page.keyboard.type("love");
    const files = await page.evaluateHandle(() => {
      const transfer = new DataTransfer();
      transfer.items.add(new File(["{}"], "x.json"));
      return transfer;
    });
    await page.dispatchEvent("main", "drop", { dataTransfer: files });
    await question().waitFor();
    await button(page, "Cancel").click();
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
  });

  it("hold the page when it is to be left, and nothing else does", async () => {
    await type(page, 1, "love");
    assert.ok(await isHeld());
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
    await save("Project (.json)");
    assert.ok(!await isHeld());
  });
});
