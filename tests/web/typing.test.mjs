// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { before, beforeEach, describe, it } from "node:test";
import {
  button, carried, emptyNotes, focusedNote, lyrics, noteAt, openPage, openSong, songOf, status,
  type, useBrowser,
} from "./browser.mjs";

describe("Typing a lyric", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });
  beforeEach(() => openSong(page, songOf([emptyNotes(8)])));

  const field = () => page.locator("#lyric");

  it("fills the notes after it at once", async () => {
    await type(page, 1, "Hello さくら");
    assert.deepEqual(await carried(page),
      ["Hello さくら[hh ah]", "[l ow]", "[s a]", "[k u]", "[r a]"]);
    assert.equal(await noteAt(page, 2).getAttribute("data-phonemes"), "l ow");
    assert.equal(await noteAt(page, 1).getAttribute("data-kind"), "word");
    assert.equal(await noteAt(page, 2).getAttribute("data-kind"), "further");
    assert.equal(await noteAt(page, 6).getAttribute("data-kind"), "empty");
  });

  it("shows the lyric over the note and the phonemes in it", async () => {
    await type(page, 1, "Hello");
    assert.equal(await noteAt(page, 1).locator(".lyric").innerText(), "Hello");
    assert.equal(await noteAt(page, 1).locator(".phonemes").innerText(), "hh ah");
    assert.equal(await noteAt(page, 2).locator(".lyric").textContent(), "");
  });

  it("is begun by a click or by Enter, and ended by Enter", async () => {
    await noteAt(page, 3).click();
    assert.ok(await field().evaluate((element) => element === document.activeElement));
    await page.keyboard.type("love");
    await page.keyboard.press("Enter");
    assert.equal(await field().count(), 0);
    assert.deepEqual(await focusedNote(page), [1, 3]);
    await page.keyboard.press("ArrowRight");
    await page.keyboard.press("Enter");
    await page.keyboard.type("light");
    await page.keyboard.press("Enter");
    assert.deepEqual((await lyrics(page)).slice(2, 4), ["love[l ah v]", "light[l ay t]"]);
  });

  it("is begun by the first letter too", async () => {
    await noteAt(page, 1).focus();
    await page.keyboard.type("Glo--ria");
    assert.equal(await field().inputValue(), "Glo--ria");
    await page.keyboard.press("Enter");
    assert.deepEqual(await carried(page), ["Glo--ria[g l ao]", "[-]", "[- ]", "[r iy]", "[ah]"]);
  });

  it("goes on to the next note by Tab, and back by Shift+Tab", async () => {
    await noteAt(page, 1).click();
    await page.keyboard.type("love");
    await page.keyboard.press("Tab");
    await page.keyboard.type("light");
    await page.keyboard.press("Shift+Tab");
    assert.equal(await field().inputValue(), "love");
    assert.deepEqual(await carried(page), ["love[l ah v]", "light[l ay t]"]);
  });

  it("leaves the roll by Tab behind the last note", async () => {
    await noteAt(page, 8).click();
    await page.keyboard.type("love");
    await page.keyboard.press("Tab");
    assert.equal((await lyrics(page))[7], "love[l ah v]");
    assert.equal(await field().count(), 0);
    assert.equal(await focusedNote(page), undefined);
  });

  it("is left by Escape", async () => {
    await noteAt(page, 1).click();
    await page.keyboard.type("love");
    await page.keyboard.press("Escape");
    assert.deepEqual(await carried(page), []);
    assert.deepEqual(await focusedNote(page), [1, 1]);
    assert.equal(await button(page, "Undo").getAttribute("aria-disabled"), "true");
  });

  it("is done when another note is clicked", async () => {
    await noteAt(page, 1).click();
    await page.keyboard.type("love");
    await noteAt(page, 4).click();
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
    assert.equal(await field().inputValue(), "");
  });

  it("offers what was typed before, and changes nothing when that stays", async () => {
    await type(page, 1, "Hello");
    await button(page, "Undo").click();
    await button(page, "Redo").click();
    await noteAt(page, 1).click();
    assert.equal(await field().inputValue(), "Hello");
    await page.keyboard.press("Enter");
    await button(page, "Undo").click();
    assert.deepEqual(await carried(page), []);
  });

  it("does not end with the Enter that ends a composition", async () => {
    await noteAt(page, 1).click();
    const session = await page.context().newCDPSession(page);
    await session.send("Input.imeSetComposition",
      { text: "さくら", selectionStart: 3, selectionEnd: 3 });
    await page.keyboard.press("Enter");
    assert.equal(await field().inputValue(), "さくら");
    assert.deepEqual(await carried(page), []);
    await session.send("Input.insertText", { text: "さくら" });
    assert.equal(await field().inputValue(), "さくら");
    await page.keyboard.press("Enter");
    assert.deepEqual(await carried(page), ["さくら[s a]", "[k u]", "[r a]"]);
  });

  it("does not end with a key that an input method has taken", async () => {
    await noteAt(page, 1).click();
    await page.keyboard.type("love");
    await field().dispatchEvent("keydown", { key: "Enter", keyCode: 229, bubbles: true });
    assert.equal(await field().count(), 1);
    assert.deepEqual(await carried(page), []);
  });

  it("is forgotten when another song is opened before Enter", async () => {
    await noteAt(page, 1).click();
    await page.keyboard.type("love");
    await openSong(page, songOf([emptyNotes(2)]));
    assert.deepEqual(await carried(page), []);
    assert.equal(await field().count(), 0);
  });

  it("is taken back and done again, by buttons", async () => {
    await type(page, 1, "Hello");
    await button(page, "Undo").click();
    assert.deepEqual(await carried(page), []);
    await button(page, "Redo").click();
    assert.deepEqual(await carried(page), ["Hello[hh ah]", "[l ow]"]);
    assert.equal(await button(page, "Redo").getAttribute("aria-disabled"), "true");
  });

  it("is taken back and done again, by keys", async () => {
    await type(page, 1, "Hello");
    for (const redo of ["Control+y", "Control+Shift+Z"]) {
      await page.keyboard.press("Control+z");
      assert.deepEqual(await carried(page), []);
      await page.keyboard.press(redo);
      assert.deepEqual(await carried(page), ["Hello[hh ah]", "[l ow]"]);
    }
  });

  it("leaves the keys of the history to the field while it is open", async () => {
    await type(page, 1, "Hello");
    await noteAt(page, 3).click();
    await page.keyboard.type("x");
    await page.keyboard.press("Control+z");
    assert.deepEqual(await carried(page), ["Hello[hh ah]", "[l ow]"]);
  });

  it("takes away a syllable that another lyric has left", async () => {
    await type(page, 1, "さくら");
    await type(page, 1, "love");
    assert.deepEqual(await carried(page), ["love[l ah v]", "[k u]", "[r a]"]);
    await type(page, 3, "");
    assert.deepEqual(await carried(page), ["love[l ah v]", "[k u]"]);
    await noteAt(page, 2).click();
    await page.keyboard.press("Tab");
    await page.keyboard.press("Escape");
    assert.deepEqual(await carried(page), ["love[l ah v]", "[k u]"]);
  });

  it("empties a note", async () => {
    await type(page, 1, "love");
    await type(page, 1, "");
    assert.deepEqual(await carried(page), []);
    assert.equal(await status(page), "The note has no lyric now.");
  });
});

describe("The line under the roll", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });
  beforeEach(() => openSong(page, songOf([emptyNotes(8)])));

  it("says what is sung", async () => {
    await type(page, 1, "Hello");
    assert.equal(await status(page), "“Hello” is sung, note by note: hh ah · l ow");
  });

  it("says what each note carries before it offers the word without its hyphens", async () => {
    await type(page, 1, "Glo--ria");
    const paragraphs = await page.locator("[role=status] p").allInnerTexts();
    assert.equal(paragraphs[0], "“Glo--ria” is sung, note by note: g l ao · - · - · r iy · ah");
    assert.equal(paragraphs.length, 2);
    assert.match(paragraphs[1], /^The hyphens in “Glo--ria” hold a syllable over more notes\./);
    assert.doesNotMatch(paragraphs.join(), /but|not sung/);
    await button(page, "Type “Gloria”").click();
    assert.equal((await lyrics(page))[0], "Gloria[g l ao]");
  });

  it("says what is not sung and why, and types the mend that is clicked", async () => {
    await type(page, 1, "the beutiful cat");
    assert.match(await status(page), /^"beutiful" is not sung: the dictionary does not have it/);
    assert.match(await status(page), /Of “the beutiful cat”, only this is sung, note by note: dh ah · k ae t$/);
    await button(page, "Type “beautiful”").click();
    assert.equal((await lyrics(page))[0], "the beautiful cat[dh ah]");
    assert.match(await status(page), /“the beautiful cat” is sung/);
    assert.deepEqual(await focusedNote(page), [1, 1]);
  });

  it("types a proposal with its phonemes, for the whole lyric among other words", async () => {
    await type(page, 1, "I say yeet");
    const guess = button(page, "Type “I say yeet[ay,s ey,y iy t]”, a guess");
    assert.equal(await guess.evaluate((element) => element.classList.contains("guess")), true);
    await guess.click();
    assert.equal((await lyrics(page))[0], "I say yeet[ay]");
    await type(page, 1, "kiss'd");
    await button(page, "Type “kiss'd[k ih s t]”").click();
    assert.equal((await lyrics(page))[0], "kiss'd[k ih s t]");
  });

  it("mends the word where it stands, whatever stands before it", async () => {
    await type(page, 1, "😀 Hello, world");
    await button(page, "Type “Hello”").click();
    assert.equal((await lyrics(page))[0], "😀 Hello world[hh ah]");
  });

  it("parts a word from the pair that comes behind it", async () => {
    await type(page, 1, "loveキャンディ");
    await button(page, "Type “love キャ”").click();
    assert.deepEqual(await carried(page),
      ["love キャンディ[l ah v]", "[ky a]", "[N]", "[d i]"]);
  });

  it("tells of a note again that is opened and left as it is", async () => {
    await type(page, 1, "xyzzy");
    await type(page, 3, "love");
    await noteAt(page, 1).click();
    await page.keyboard.press("Enter");
    assert.match(await status(page), /"xyzzy" is not sung/);
  });

  it("tells of so many words only as it has room for", async () => {
    await type(page, 1, Array.from("abcdefg", (letter) => `xyzzy${letter}`).join(" "));
    const said = await status(page);
    assert.equal(said.match(/is not sung/g).length, 4);
    assert.match(said, /And 3 more\./);
  });

  it("says which syllables were not sung when the notes ran out, and then which were", async () => {
    await type(page, 7, "さくら");
    assert.deepEqual(await page.locator("[role=status] p").allInnerTexts(), [
      "Not sung, as the notes ran out: r a. Add notes and type the lyric again.",
      "Of “さくら”, only this is sung, note by note: s a · k u",
    ]);
  });
});
