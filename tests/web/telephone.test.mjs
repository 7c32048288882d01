// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { describe, it } from "node:test";
import {
  button, carried, emptyNotes, noteAt, openPage, openSong, showEverything, songOf, useBrowser,
} from "./browser.mjs";

const PHONE = { width: 360, height: 640 };

describe("On a telephone, the page", () => {
  let page;
  useBrowser();

  for (const locale of ["ja-JP", "en-GB"]) {
    it(`keeps its buttons in sight and takes little room for them, ${locale}`, async () => {
      page = await openPage({ locale, viewport: PHONE, hasTouch: true, isMobile: true });
      await openSong(page, songOf([emptyNotes(80)]));
      await page.evaluate(() => scrollTo(0, 1e6));
      for (const action of ["open", "stop", "fit", "deleteNote"]) {
        const isInSight = await page.locator(`[data-action=${action}]`).evaluate((element) => {
          const { left, right, top, bottom } = element.getBoundingClientRect();
          return element.contains(document.elementFromPoint((left + right) / 2, (top + bottom) / 2));
        });
        assert.ok(isInSight, action);
      }
      const { height } = await page.locator("header").boundingBox();
      assert.ok(height < PHONE.height / 5, `${height} pixels`);
    });

    it(`has room for all that it shows, ${locale}`, async () => {
      await showEverything(page);
      const width = await page.evaluate(() => document.documentElement.scrollWidth);
      assert.ok(width <= PHONE.width, `${width} pixels`);
      await noteAt(page, 8).tap();
      for (const part of ["#lyric", "#under-lyric"]) {
        const { x, width: wide } = await page.locator(part).boundingBox();
        assert.ok(x >= 0 && x + wide <= PHONE.width, part);
      }
      await page.keyboard.type("love");
      await page.keyboard.press("Enter");
      assert.equal(await noteAt(page, 8).getAttribute("data-phonemes"), "l ah v");
    });
  }

  it("speaks of taps in a hint that can be closed", async () => {
    assert.match(await page.locator("#intro").innerText(), /^Tap a note/);
    await button(page, "Close this hint").tap();
    assert.equal(await page.locator("#intro").count(), 0);
  });

  it("has buttons for the text field", async () => {
    await openSong(page, songOf([emptyNotes(4)]));
    await noteAt(page, 1).tap();
    await page.keyboard.type("love");
    await button(page, "Next note").tap();
    assert.equal(await page.evaluate(() => document.activeElement.id), "lyric");
    await page.keyboard.type("light");
    await button(page, "OK").tap();
    assert.deepEqual(await carried(page), ["love[l ah v]", "light[l ay t]"]);
    assert.equal(await page.locator("#lyric").count(), 0);
    await noteAt(page, 3).tap();
    await page.keyboard.type("song");
    await button(page, "Cancel").tap();
    assert.deepEqual(await carried(page), ["love[l ah v]", "light[l ay t]"]);
  });
});
