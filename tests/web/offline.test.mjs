// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { describe, it } from "node:test";
import {
  button, forgetErrors, lyrics, openPage, PAGE_FILE, PROJECT, type, useBrowser,
} from "./browser.mjs";

describe("The page", () => {
  useBrowser();

  it("works without a network, and asks for nothing but itself", async () => {
    const page = await openPage();
    const asked = [];
    page.on("request", (request) => asked.push(request.url()));
    await page.reload();
    await page.waitForSelector("[data-note]");
    await type(page, 1, "light");
    await button(page, "Play").click();
    await button(page, "Stop").click();
    assert.match((await lyrics(page))[0], /^light\[/);
    const others = asked.filter((url) => !/^(file|data|blob):/.test(url));
    assert.deepEqual(others, []);
    assert.equal(asked.filter((url) => url.startsWith("file:")).length, 1);
  });

  it("may reach no address, whatever a script in it tried", async () => {
    const page = await openPage();
    const outcome = await page.evaluate(async () => {
      const blocked = new Promise((resolve) =>
        document.addEventListener("securitypolicyviolation", ({ effectiveDirective }) =>
          resolve(effectiveDirective), { once: true }));
      await fetch("http://127.0.0.1:9/").catch(() => {});
      return blocked;
    });
    forgetErrors(); // the browser told of what it blocked
    assert.equal(outcome, "connect-src");
    const policy = await page.locator("meta[http-equiv]").getAttribute("content");
    assert.match(policy, /^default-src 'none';/);
    assert.doesNotMatch(policy, /http|\*|'unsafe-eval'/);
  });

  it("names no file and no path of the machine that built it", async () => {
    const text = await readFile(PAGE_FILE, "utf8");
    assert.ok(!text.includes(PROJECT));
    // What emscripten calls the home of a program in the browser.
    assert.doesNotMatch(text.replace("/home/web_user", ""), /\/(home|root|tmp|work|usr)\/\w/);
    assert.doesNotMatch(text, /<script[^>]+src=|<link|@import|url\(/);
  });
});
