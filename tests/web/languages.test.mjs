// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { describe, it } from "node:test";
import {
  button, emptyNotes, lyrics, noteAt, openFile, openPage, openSong, PROJECT, songOf, status, type,
  useBrowser,
} from "./browser.mjs";
import en from "../../web/page/texts/en.js";
import ja from "../../web/page/texts/ja.js";

const JAPANESE = { locale: "ja-JP" };
const BUTTONS = {
  en: ["Open", "Save", "Undo", "Redo", "Play", "Stop", "Fit", "Words", "Add note", "Delete note"],
  ja: ["開く", "保存", "元に戻す", "やり直す", "再生", "停止", "楽譜に合わせる", "歌詞", "音符を追加", "音符を削除"],
};

describe("The page", () => {
  useBrowser();

  const lang = (page) => page.evaluate(() => document.documentElement.lang);
  const japanese = /[ぁ-ヿ一-鿿]/;

  it("speaks the language of the browser", async () => {
    for (const [locale, expected] of [["ja", "ja"], ["ja-JP", "ja"], ["de-DE", "en"]]) {
      const page = await openPage({ locale });
      assert.equal(await lang(page), expected, locale);
      for (const name of BUTTONS[expected]) {
        assert.equal(await button(page, name).count(), 1, name);
      }
    }
  });

  it("opens with an example of its language", async () => {
    const inEnglish = await lyrics(await openPage());
    const inJapanese = await lyrics(await openPage(JAPANESE));
    assert.notDeepEqual(inEnglish, inJapanese);
    assert.match(inJapanese.join(" "), japanese);
  });

  it("is switched from one language to the other, and the song stays", async () => {
    const page = await openPage();
    await type(page, 1, "light");
    const song = await lyrics(page);
    await button(page, "日本語").click();
    assert.equal(await lang(page), "ja");
    assert.match(await page.title(), japanese);
    assert.match(await status(page), /「light」/);
    assert.match(await noteAt(page, 1).getAttribute("aria-label"), /小節目/);
    assert.deepEqual(await lyrics(page), song);
    await button(page, "English").click();
    assert.equal(await lang(page), "en");
    assert.doesNotMatch(await page.locator("#tools").innerText(), japanese);
  });

  it("tells of lyrics that are not sung in its language", async () => {
    const page = await openPage(JAPANESE);
    await openSong(page, songOf([emptyNotes(4)]));
    for (const [lyric, said] of [
      ["xyzzy", "「xyzzy」は辞書にないので歌われません。"],
      ["桜", "「桜」は漢字なので歌われません。"],
      ["Hello, さくら", "「Hello,」は記号が付いているので歌われません。"],
      ["loveキャンディ", "かながすぐ後に続くので歌われません。"],
      ["light-", "「light-」は音符ごとにこう歌われます: l ay · - t\n\n「light-」のハイフンは、その分だけ"],
      ["ス0", "直前の音を消すか、音符を無音にします。"],
      ["さくらさくら", "音符が足りないので歌われません: k u · r a。"],
    ]) {
      await type(page, 1, lyric);
      assert.ok((await status(page)).includes(said), `${lyric}: ${await status(page)}`);
    }
  });

  it("fits and says what came of it in its language", async () => {
    const page = await openPage(JAPANESE);
    await openFile(page, `${PROJECT}wysim/songs/gloria.musicxml`);
    await button(page, "楽譜に合わせる").click();
    await page.waitForFunction(() => document.querySelector("[role=status]").textContent ===
      "合わせました: ハイフンで 2 語、別の発音で 1 語。2 語は、もともと音符に合っています。");
    await button(page, "元に戻す").click();
    assert.equal(await status(page), "元に戻しました。");
  });
});

describe("The two languages", () => {
  const placesIn = (text) => [...text.matchAll(/\{(\w+)\}/g)].map(([, name]) => name).sort();

  it("say the same things", () => {
    assert.deepEqual(Object.keys(ja).sort(), Object.keys(en).sort());
    assert.equal(ja.helpRows.length, en.helpRows.length);
  });

  it("name the same values in them", () => {
    for (const [name, text] of Object.entries(en)) {
      if (typeof text === "string") {
        assert.deepEqual(placesIn(ja[name]), placesIn(text), name);
      } else if (text.other !== undefined) {
        assert.deepEqual(placesIn(ja[name].other), placesIn(text.other), name);
      }
    }
  });

  it("have a sentence for every reason that the extension names", async () => {
    const source = await readFile(`${PROJECT}wysim/words/CheckReport.cpp`, "utf8");
    const reasons = [...source.matchAll(/\{Reason::\w+, "([a-z-]+)"/g)].map(([, name]) => name);
    assert.ok(reasons.length > 10);
    assert.deepEqual(Object.keys(ja.findings).sort(), reasons.sort());
    assert.ok(Object.keys(en.findings).every((reason) => reasons.includes(reason)));
  });
});
