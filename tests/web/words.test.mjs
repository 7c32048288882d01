// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { before, beforeEach, describe, it } from "node:test";
import {
  button, carried, emptyNotes, focusedNote, lyrics, noteAt, openPage, openSong, songOf, status, type,
  useBrowser,
} from "./browser.mjs";

/** A melody whose phrases have so many notes, with rests between them. */
function phrases(...lengths) {
  let start = 0;
  return lengths.flatMap((length) => {
    const notes = Array.from({ length }, (_, i) => ({ start: start + i }));
    start += length + 2;
    return notes;
  });
}

const VERSE = "Twinkle twinkle little star\nhow I wonder what you are";
const LAID = [
  "Twinkle[t w ih ng]", "[k ah l]", "twinkle[t w ih ng]", "[k ah l]", "little[l ih]", "[t ah l]",
  "star[s t aa r]", "how[hh aw]", "I[ay]", "wonder[w ah n]", "[d er]", "what[w ah t]", "you[y uw]",
  "are[aa r]",
];

const words = (page) => page.locator("#words");
const row = (page, line) => page.locator(`[data-line="${line}"]`);
const told = (page) => page.locator("#words-told").innerText();
const focused = (page) => page.evaluate(() => document.activeElement.id || document.activeElement.textContent);

/** Writes a text into the sheet as a person does; ends when the page has counted it. */
async function write(page, text) {
  if (!await words(page).isVisible()) {
    await page.locator("[data-action=words]").click();
  }
  await words(page).fill(text);
  await counted(page);
}

/** Puts a long text into the sheet, for which typing takes too long. */
async function writeAtOnce(page, text) {
  await words(page).evaluate((field, value) => {
    field.value = value;
    field.dispatchEvent(new Event("input"));
  }, text);
}

async function counted(page) {
  await page.waitForSelector("#lines-box[aria-busy=false]", { state: "attached" });
}

/** Each row as its line, its syllables and its notes. */
function rows(page) {
  return page.locator("[data-line]").evaluateAll((all) =>
    all.map(({ dataset }) => [dataset.line, dataset.syllables, dataset.notes].map(Number)));
}

/** Pastes a text into the element that has the focus. */
async function paste(page, text) {
  await page.evaluate((copied) => {
    const clipboardData = new DataTransfer();
    clipboardData.setData("text/plain", copied);
    const event = new ClipboardEvent("paste", { clipboardData, bubbles: true, cancelable: true });
    if (document.activeElement.dispatchEvent(event)) {
      document.execCommand("insertText", false, copied);
    }
  }, text);
}

describe("The sheet with the words", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });
  beforeEach(async () => {
    await openSong(page, songOf([phrases(7, 7)]));
    if (await words(page).isVisible()) {
      await words(page).fill("");
      await words(page).press("Escape");
    }
  });

  it("opens with the focus in the text, and Escape gives it back to the button", async () => {
    await button(page, "Words").click();
    assert.equal(await focused(page), "words");
    assert.equal(await page.getByRole("region", { name: "Words" }).count(), 1);
    assert.match(await told(page), /each line goes to a phrase/);
    await page.keyboard.type("love");
    await page.keyboard.press("Escape");
    assert.equal(await words(page).isVisible(), false);
    assert.equal(await focused(page), "Words");
    await page.keyboard.press("Enter");
    assert.equal(await words(page).inputValue(), "love");
    await button(page, "Close the words").click();
    assert.equal(await focused(page), "Words");
  });

  it("has a row for each line that has words, which says its syllables and its notes", async () => {
    await write(page, `\n${VERSE}\n\n`);
    assert.deepEqual(await rows(page), [[2, 7, 7], [3, 7, 7]]);
    assert.match(await row(page, 2).innerText(), /7 syllables, 7 notes/);
    assert.equal(await told(page), "2 lines: 14 syllables, 14 notes.");
    await words(page).fill("love");
    await counted(page);
    assert.deepEqual(await rows(page), [[1, 1, 7]]);
    assert.match(await row(page, 1).innerText(), /1 syllable, 7 notes/);
  });

  it("counts while a person types, and draws no row anew that says the same", async () => {
    await openSong(page, songOf([phrases(4, 3)]));
    await write(page, "さくら\nさくら");
    await page.evaluate(() => (document.querySelector("[data-line='2']").isTheSame = true));
    await words(page).press("Control+Home");
    await page.keyboard.insertText("ら");
    await counted(page);
    assert.deepEqual(await rows(page), [[1, 4, 4], [2, 3, 3]]);
    await page.keyboard.press("Enter");
    await counted(page);
    assert.deepEqual(await rows(page), [[1, 1, 1], [2, 3, 3], [3, 3, 3]]);
    await page.keyboard.press("Backspace");
    await counted(page);
    assert.deepEqual(await rows(page), [[1, 4, 4], [2, 3, 3]]);
    assert.ok(await row(page, 2).evaluate((element) => element.isTheSame));
  });

  it("says in words which line is too long, and for which no notes are left", async () => {
    await openSong(page, songOf([phrases(2)]));
    await write(page, "さく\nらら");
    assert.match(await row(page, 1).innerText(), /2 syllables, 2 notes$/);
    assert.match(await row(page, 2).innerText(), /2 syllables, no notes left$/);
    const marked = () => page.locator("[data-line].too-long")
      .evaluateAll((all) => all.map(({ dataset }) => Number(dataset.line)));
    assert.deepEqual(await marked(), [2]);
    await write(page, "さくら");
    assert.match(await row(page, 1).innerText(), /3 syllables, 2 notes, 1 syllable too many$/);
    assert.deepEqual(await marked(), [1]);
    await write(page, "xyzzy");
    assert.match(await row(page, 1).innerText(), /^1\s+xyzzy\s+0 syllables\s/);
    assert.deepEqual(await marked(), []);
  });

  it("follows the melody when notes come and go", async () => {
    await openSong(page, songOf([phrases(3, 3)]));
    await write(page, "さくら\nさくら");
    assert.equal(await told(page), "2 lines: 6 syllables, 6 notes.");
    await noteAt(page, 1).focus();
    await page.keyboard.press("Delete");
    await counted(page);
    assert.equal(await told(page), "2 lines: 6 syllables, 5 notes.");
    await openSong(page, songOf([phrases(3)]));
    await counted(page);
    assert.equal(await told(page), "2 lines: 6 syllables, 3 notes.");
    assert.equal(await words(page).inputValue(), "さくら\nさくら");
  });

  it("is for the track of the chosen note", async () => {
    await openSong(page, songOf([phrases(7), phrases(2)]));
    await write(page, "Twinkle");
    assert.equal(await page.locator("#words-for").innerText(), "For the track “Singer 1”");
    await noteAt(page, 1, 2).focus();
    await counted(page);
    assert.deepEqual(await rows(page), [[1, 2, 2]]);
    assert.equal(await page.locator("#words-for").innerText(), "For the track “Singer 2”");
    await button(page, "Lay").click();
    assert.deepEqual(await carried(page, 1), []);
    assert.deepEqual(await carried(page, 2), ["Twinkle[t w ih ng]", "[k ah l]"]);
  });

  it("marks words that are not sung, and puts a proposal in their place", async () => {
    await write(page, "😀 beutiful star\nlove");
    assert.deepEqual(await row(page, 1).locator("mark").allInnerTexts(), ["beutiful"]);
    assert.equal(await row(page, 1).locator(".line").innerText(), "😀 beutiful star");
    assert.match(await row(page, 1).innerText(), /"beutiful" is not sung/);
    assert.match(await told(page), /1 word is not sung\./);
    await row(page, 1).getByRole("button", { name: "Type “beautiful”" }).click();
    assert.equal(await words(page).inputValue(), "😀 beautiful star\nlove");
    assert.equal(await focused(page), "words");
    await counted(page);
    assert.deepEqual(await row(page, 1).locator("mark").allInnerTexts(), []);
    await page.keyboard.press("Control+z");
    assert.equal(await words(page).inputValue(), "😀 beutiful star\nlove");
  });

  it("shows the beginning of a long line in its row", async () => {
    await write(page, `${"la ".repeat(300)}xyzzy`);
    const shown = await row(page, 1).locator(".line").innerText();
    assert.match(shown, /^la la .*…$/);
    assert.ok(shown.length < 250);
    assert.match(await row(page, 1).innerText(), /300 syllables, 14 notes/);
    assert.match(await row(page, 1).innerText(), /"xyzzy" is not sung/);
  });

  it("puts the phonemes of a proposal after the word, or says no more of one that is too long", async () => {
    await write(page, `love, yeet, ${"x".repeat(1001)}`);
    await row(page, 1).getByRole("button", { name: "Type “yeet[y iy t]”, a guess" }).click();
    assert.match(await words(page).inputValue(), /^love, yeet\[y iy t\], x/);
    await counted(page);
    assert.equal(await row(page, 1).getByRole("button").count(), 0);
    assert.match(await row(page, 1).innerText(), /2 syllables, 7 notes\s+1 word is not sung: x+\.$/);
  });

  it("goes to the line whose row is clicked, and marks the row of the line that is edited", async () => {
    await write(page, VERSE);
    assert.equal(await row(page, 2).getAttribute("aria-current"), "true");
    await row(page, 1).locator(".counts").click();
    assert.equal(await words(page).evaluate((field) => field.selectionStart), 0);
    await page.waitForSelector("[data-line='1'][aria-current]");
    assert.equal(await row(page, 2).getAttribute("aria-current"), null);
    await page.keyboard.press("ArrowDown");
    await page.waitForSelector("[data-line='2'][aria-current]");
  });

  it("lays the text as one edit, and gives the focus back", async () => {
    await write(page, VERSE);
    await button(page, "Lay").click();
    assert.deepEqual(await lyrics(page), LAID);
    assert.equal(await words(page).isVisible(), false);
    assert.equal(await focused(page), "Words");
    assert.equal(await status(page), "2 lines laid: 14 syllables on their notes.");
    await page.keyboard.press("Control+z");
    assert.deepEqual(await carried(page), []);
    assert.equal(await button(page, "Undo").getAttribute("aria-disabled"), "true");
    await button(page, "Redo").click();
    assert.deepEqual(await lyrics(page), LAID);
    await button(page, "Words").click();
    assert.equal(await words(page).inputValue(), "");
    assert.deepEqual(await rows(page), []);
  });

  it("takes its keys for itself, and leaves the history of the song alone", async () => {
    await type(page, 1, "love");
    await write(page, "light");
    await page.keyboard.press("Control+z");
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
    assert.equal(await words(page).inputValue(), "");
  });

  it("says what was replaced", async () => {
    await type(page, 1, "love");
    await write(page, "Twinkle");
    await button(page, "Lay").click();
    assert.match(await status(page), /^1 line laid: 2 syllables on their notes\./);
    assert.match(await status(page), /1 word was replaced\./);
    await button(page, "Undo").click();
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
  });

  it("says which words have no notes, and goes to their line", async () => {
    await openSong(page, songOf([phrases(2)]));
    await write(page, "さく\nらら");
    await button(page, "Lay").click();
    assert.deepEqual(await page.locator("[role=status] p").allInnerTexts(), [
      "2 lines laid: of 4 syllables, 2 are on notes.", "Line 2 has no notes: “らら”.",
    ]);
    await openSong(page, songOf([[{}, ...phrases(3).map(({ start }) => ({ start: start + 4 }))]]));
    await write(page, "love\nさくらら");
    await button(page, "Lay").click();
    assert.match(await status(page), /Line 2 is too long: no notes are left for “さくらら…”\./);
    await button(page, "Go to line 2").click();
    assert.deepEqual(await focusedNote(page), [1, 2]);
  });

  it("calls no line too long whose syllables share a note", async () => {
    await openSong(page, songOf([phrases(1)]));
    await write(page, "Twinkle");
    assert.match(await row(page, 1).innerText(), /1 note$/);
    await button(page, "Lay").click();
    assert.deepEqual(await carried(page), ["Twinkle[t w ih ng k l]"]);
    assert.match(await status(page), /^1 line laid: \d syllables? on their notes\.$/);
  });

  it("says which words are not sung, and lays them as proposed in place of the first edit", async () => {
    await openSong(page, songOf([phrases(2)]));
    await write(page, "yeet love");
    await button(page, "Lay").click();
    assert.match(await status(page), /In 1 line, syllables are held over more notes\./);
    assert.match(await status(page), /1 word is not sung: yeet\./);
    assert.deepEqual(await carried(page), ["love-[l ah]", "[- v]"]);
    await button(page, "Sing unknown words as proposed").click();
    assert.deepEqual(await carried(page), ["yeet[y iy t]", "love[l ah v]"]);
    assert.doesNotMatch(await status(page), /not sung/);
    assert.deepEqual(await focusedNote(page), [1, 1]);
    await button(page, "Undo").click();
    assert.deepEqual(await carried(page), []);
    assert.equal(await button(page, "Undo").getAttribute("aria-disabled"), "true");
  });

  it("says when nothing that was laid is sung", async () => {
    await write(page, "xyzzy");
    await button(page, "Lay").click();
    assert.match(await status(page), /^1 line laid, but none of the words is sung\./);
  });

  it("says that a text has no words, and changes nothing", async () => {
    for (const text of ["", " \n\n"]) {
      await write(page, text);
      await button(page, "Lay").click();
      assert.equal(await status(page), "There are no words in the text.", text);
      assert.ok(await words(page).isVisible());
      assert.equal(await button(page, "Undo").getAttribute("aria-disabled"), "true");
    }
    assert.equal(await told(page), "There are no words in the text.");
    await write(page, "[Chorus]");
    assert.equal(await told(page), "There are no words in the text.");
    await button(page, "Lay").click();
    assert.equal(await status(page), "There are no words in the text.");
    assert.equal(await words(page).inputValue(), "[Chorus]");
  });

  it("says that a track has no notes, and keeps the text", async () => {
    await openSong(page, songOf([[]]));
    await write(page, "love");
    assert.match(await told(page), /^The track has no notes/);
    await button(page, "Lay").click();
    assert.match(await status(page), /^The track has no notes/);
    assert.equal(await words(page).inputValue(), "love");
  });

  it("is used by the keyboard alone", async () => {
    await openSong(page, songOf([phrases(7, 7)]));
    await page.locator("[data-action=fit]").focus();
    await page.keyboard.press("Tab");
    await page.keyboard.press("Enter");
    await page.keyboard.type("beutiful star\nlove");
    await counted(page);
    for (const expected of ["Lay", "lines-box", "beautiful"]) {
      await page.keyboard.press("Tab");
      assert.equal(await focused(page), expected);
    }
    await page.keyboard.press("Enter");
    assert.equal(await focused(page), "words");
    assert.equal(await words(page).inputValue(), "beautiful star\nlove");
    await page.keyboard.press("Control+Enter");
    assert.match((await lyrics(page)).join(" "), /^beautiful\[.* star\[.* love/);
    assert.equal(await focused(page), "Words");
  });

  it("does not close with the Escape that ends a composition", async () => {
    await write(page, "");
    const session = await page.context().newCDPSession(page);
    await session.send("Input.imeSetComposition", { text: "さくら", selectionStart: 3, selectionEnd: 3 });
    await words(page).dispatchEvent("keydown", { key: "Escape", keyCode: 229, bubbles: true });
    assert.ok(await words(page).isVisible());
    await session.send("Input.insertText", { text: "さくら" });
    await counted(page);
    assert.deepEqual(await rows(page), [[1, 3, 7]]);
  });

  it("tells a screen reader of the line when the typing pauses, and not before", async () => {
    await write(page, "");
    const heard = page.locator("#sheet [aria-live=polite]");
    await page.evaluate(() => {
      globalThis.heard = [];
      new MutationObserver(() => globalThis.heard.push(document.querySelector("#sheet [aria-live]").textContent))
        .observe(document.querySelector("#sheet [aria-live]"), { childList: true });
    });
    await words(page).pressSequentially(VERSE, { delay: 10 });
    await page.waitForFunction(() => globalThis.heard.length > 0);
    assert.equal(await heard.textContent(), "Line 2: 7 syllables, 7 notes.");
    assert.deepEqual(await page.evaluate(() => globalThis.heard), ["Line 2: 7 syllables, 7 notes."]);
    const description = await words(page).evaluate((field) =>
      document.getElementById(field.getAttribute("aria-describedby")).textContent);
    assert.equal(description, "2 lines: 14 syllables, 14 notes.");
  });

  it("speaks the other language when that is switched", async () => {
    await openSong(page, songOf([phrases(2)]));
    await write(page, "さくら\nxyzzy");
    await button(page, "日本語").click();
    assert.match(await row(page, 1).innerText(), /3 音節、音符 2 個、1 音節超過/);
    assert.match(await row(page, 2).innerText(), /「xyzzy」は辞書にないので歌われません。/);
    assert.equal(await told(page), "2 行: 3 音節、音符 2 個。1 語は歌われません。");
    await button(page, "流し込む").click();
    assert.deepEqual(await page.locator("[role=status] p").allInnerTexts(), [
      "2 行を流し込みました。3 音節のうち、音符に入ったのは 2 音節です。",
      "1 行目は長すぎます。「さくら…」の音符が足りません。 1 行目へ移動",
      "1 語は歌われません: xyzzy。 辞書にない単語を提案した発音で歌う",
    ]);
    await button(page, "English").click();
    assert.match(await status(page), /^2 lines laid/);
  });
});

describe("Lines that are pasted into a note", () => {
  let page;
  useBrowser();
  before(async () => {
    page = await openPage();
  });
  beforeEach(() => openSong(page, songOf([phrases(7, 7)])));

  it("open the sheet with them", async () => {
    await noteAt(page, 1).click();
    await paste(page, `${VERSE.replace("\n", "\r\n")}\r\n`);
    assert.equal(await page.locator("#lyric").count(), 0);
    assert.equal(await focused(page), "words");
    assert.equal(await words(page).inputValue(), `${VERSE}\n`);
    assert.match(await status(page), /The lines that you pasted are in “Words”/);
    await counted(page);
    assert.deepEqual(await rows(page), [[1, 7, 7], [2, 7, 7]]);
    assert.deepEqual(await carried(page), []);
  });

  it("leave what was typed before them in its note", async () => {
    await noteAt(page, 1).click();
    await page.keyboard.type("love");
    await paste(page, "a\nb");
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
  });

  it("come after the text that is there", async () => {
    await write(page, "love");
    await noteAt(page, 1).click();
    await paste(page, "a\nb");
    assert.equal(await words(page).inputValue(), "love\na\nb");
    await page.keyboard.press("Control+z");
    assert.equal(await words(page).inputValue(), "love");
    await words(page).fill("love\n");
    await noteAt(page, 1).click();
    await paste(page, "a\nb");
    assert.equal(await words(page).inputValue(), "love\na\nb");
  });

  it("are pasted as before when only one of them has words", async () => {
    await words(page).press("Escape");
    for (const text of ["love", "love\n", "\nlove\r\n\r\n"]) {
      await noteAt(page, 1).click();
      await paste(page, text);
      assert.equal((await page.locator("#lyric").inputValue()).trim(), "love");
      assert.equal(await words(page).isVisible(), false);
      await page.keyboard.press("Escape");
    }
  });
});

describe("The text of the sheet", () => {
  let page;
  useBrowser();

  it("is there after a reload, with the sheet as it was", async () => {
    page = await openPage();
    await write(page, VERSE);
    await page.reload();
    await page.waitForSelector("[data-note]");
    assert.equal(await words(page).inputValue(), VERSE);
    assert.ok(await words(page).isVisible());
    assert.equal(await page.locator("[data-line]").count(), 2);
    await words(page).press("Escape");
    await page.reload();
    await page.waitForSelector("[data-note]");
    assert.equal(await words(page).isVisible(), false);
    await button(page, "Words").click();
    assert.equal(await words(page).inputValue(), VERSE);
    await button(page, "Lay").click();
    await button(page, "Undo").click();
    await page.reload();
    await page.waitForSelector("[data-note]");
    assert.equal(await words(page).inputValue(), "");
  });

  it("is kept with the last key, however soon the page is loaded again", async () => {
    page = await openPage();
    await button(page, "Words").click();
    const kept = await page.evaluate(() => {
      document.execCommand("insertText", false, "love");
      dispatchEvent(new Event("pagehide"));
      return Object.values(sessionStorage).join("");
    });
    assert.match(kept, /love/);
    await page.reload();
    await page.waitForFunction(() => document.querySelector("#words")?.value === "love");
  });

  it("does without the browser's store", async () => {
    page = await openPage();
    await page.addInitScript(() => Object.defineProperty(globalThis, "sessionStorage", {
      get() {
        throw new DOMException("not allowed", "SecurityError");
      },
    }));
    await page.reload();
    await page.waitForSelector("[data-note]");
    await openSong(page, songOf([phrases(1)]));
    await write(page, "love");
    assert.deepEqual(await rows(page), [[1, 1, 1]]);
    await button(page, "Lay").click();
    assert.deepEqual(await carried(page), ["love[l ah v]"]);
  });

  it("is refused beyond 256 KiB or 10,000 lines, and nothing is laid", async () => {
    page = await openPage();
    await openSong(page, songOf([phrases(7)]));
    await button(page, "Words").click();
    const lay = button(page, "Lay");
    for (const [text, said] of [
      ["a".repeat(256 * 1024 + 1), /too long: up to 256 KiB/],
      ["さ".repeat(256 * 1024 / 3 + 1), /too long: up to 256 KiB/],
      ["a\n".repeat(10_000), /too many lines: up to 10,000/],
    ]) {
      await writeAtOnce(page, text);
      await page.waitForFunction(() => document.querySelector("#words").ariaInvalid === "true");
      assert.match(await told(page), said);
      assert.equal(await lay.getAttribute("aria-disabled"), "true");
      assert.deepEqual(await rows(page), []);
      await lay.click({ force: true });
      await words(page).press("Control+Enter");
      assert.match(await status(page), said);
      assert.deepEqual(await carried(page), []);
      await writeAtOnce(page, "love");
      await page.waitForFunction(() => document.querySelector("#words").ariaInvalid === "false");
      assert.equal(await lay.getAttribute("aria-disabled"), "false");
    }
  });

  it("may have 10,000 lines, of which only those are drawn that are looked at", async (test) => {
    page = await openPage();
    await openSong(page, songOf([phrases(7)]));
    await write(page, "");
    const start = performance.now();
    await writeAtOnce(page, "a\n".repeat(10_000).trimEnd());
    await page.waitForSelector("[data-line='10000']");
    test.diagnostic(`counted after ${Math.round(performance.now() - start)} ms`);
    assert.match(await told(page), /^10000 lines/);
    assert.ok(await page.locator("[data-line]").count() < 1500);
    const isInSight = (element) => {
      const { left, top } = element.getBoundingClientRect();
      return element.contains(document.elementFromPoint(left + 9, top + 9));
    };
    assert.ok(await row(page, 10_000).evaluate(isInSight));
    await words(page).press("Control+Home");
    await page.waitForSelector("[data-line='1']");
    assert.ok(await row(page, 1).evaluate(isInSight));
    await page.locator("#lines-box").evaluate((box) => box.scrollTo(0, 1e6));
    await page.waitForSelector("[data-line='1000']");
    assert.ok(await page.locator("[data-line]").count() < 1500);
  });
});

describe("In a window of any size, the sheet", () => {
  useBrowser();

  for (const [width, height] of [[360, 640], [800, 600], [1000, 700], [1500, 900]]) {
    it(`covers nothing of the melody and has its buttons in sight, ${width} × ${height}`, async () => {
      const page = await openPage({ viewport: { width, height } });
      await openSong(page, songOf([emptyNotes(400)]));
      await write(page, `${VERSE}\n`.repeat(30));
      await page.locator("#words").press("Control+Home");
      for (const line of [1, 2]) {
        await row(page, line).locator(".counts").click();
        assert.equal(await row(page, line).getAttribute("aria-current"), "true");
      }
      const [sheet, roll] = await Promise.all(
        ["#sheet", "#roll"].map((selector) => page.locator(selector).boundingBox()));
      assert.ok(sheet.x + sheet.width <= roll.x || sheet.y + sheet.height <= roll.y);
      assert.equal(sheet.x + sheet.width <= roll.x, width >= 1000);
      assert.ok(await page.evaluate(() => document.documentElement.scrollWidth) <= width);
      const lay = await button(page, "Lay").evaluate((element) => {
        const { left, right, top, bottom } = element.getBoundingClientRect();
        return document.elementFromPoint((left + right) / 2, (top + bottom) / 2) === element;
      });
      assert.ok(lay);
      await noteAt(page, 1).click();
      assert.ok(await page.locator("#lyric").isVisible());
    });
  }

  it("stays beside the notes that the page is scrolled to", async () => {
    const page = await openPage();
    await openSong(page, songOf([emptyNotes(400)]));
    await write(page, VERSE);
    await page.evaluate(() => scrollTo(0, 1e6));
    const isInSight = await words(page).evaluate((field) => {
      const { left, top } = field.getBoundingClientRect();
      return document.elementFromPoint(left + 9, top + 9) === field;
    });
    assert.ok(isInSight);
  });
});

describe("On a telephone, the sheet", () => {
  const PHONE = { viewport: { width: 360, height: 640 }, hasTouch: true, isMobile: true };
  let page;
  useBrowser();

  for (const locale of ["ja-JP", "en-GB"]) {
    it(`has room for all that it shows, ${locale}`, async () => {
      page = await openPage({ ...PHONE, locale });
      await openSong(page, songOf([phrases(7, 7), emptyNotes(80)]));
      await page.evaluate(() => scrollTo(0, 1e6));
      await page.locator("[data-action=words]").tap();
      await words(page).fill(`${VERSE} beutiful yeet ${"supercalifragilistic".repeat(5)}`);
      await counted(page);
      const width = await page.evaluate(() => document.documentElement.scrollWidth);
      assert.ok(width <= PHONE.viewport.width, `${width} pixels`);
      assert.ok(await page.locator("#lines-box").evaluate((box) => box.scrollWidth <= box.clientWidth));
      for (const selector of ["#sheet h2", "#words", "[data-action=lay]", "[aria-current]"]) {
        const isInSight = await page.locator(selector).evaluate((element) => {
          const { left, top } = element.getBoundingClientRect();
          return element.contains(document.elementFromPoint(left + 6, top + 6));
        });
        assert.ok(isInSight, selector);
      }
      for (const touched of await page.locator("#sheet button:visible").all()) {
        const { height } = await touched.boundingBox();
        assert.ok(height >= 24, `${height} pixels`);
      }
    });

    it(`lays a text by taps, ${locale}`, async () => {
      await words(page).fill(VERSE);
      await page.locator("[data-action=lay]").tap();
      assert.deepEqual(await lyrics(page), LAID);
      assert.equal(await words(page).isVisible(), false);
    });
  }
});
