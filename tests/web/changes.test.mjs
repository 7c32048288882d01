// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { describe, it } from "node:test";
import { changedRange, looksSame } from "../../web/page/changes.js";

function changed(before, after) {
  const { first, endBefore, endAfter } = changedRange([...before], [...after], (a, b) => a === b);
  return [before.slice(first, endBefore), after.slice(first, endAfter)];
}

describe("What has changed between two lists", () => {
  it("is nothing when they are the same", () => {
    assert.deepEqual(changed("abc", "abc"), ["", ""]);
    assert.deepEqual(changed("", ""), ["", ""]);
  });

  it("is what was put in or taken out", () => {
    assert.deepEqual(changed("abc", "abxc"), ["", "x"]);
    assert.deepEqual(changed("abc", "ac"), ["b", ""]);
    assert.deepEqual(changed("", "ab"), ["", "ab"]);
  });

  it("is all between the first and the last difference", () => {
    assert.deepEqual(changed("abcde", "axcye"), ["bcd", "xcy"]);
  });

  it("counts no item twice where neighbours are the same", () => {
    assert.deepEqual(changed("aa", "aaa"), ["", "a"]);
    assert.deepEqual(changed("aaa", "a"), ["aa", ""]);
  });
});

describe("A note", () => {
  const note = {
    start: 0, length: 1, pitch: 60, lyric: "x", word: "x", phonemes: "", kind: "unsung", unsungWords: "",
  };

  it("looks the same whatever is not drawn", () => {
    assert.ok(looksSame(note, { ...note, typed: "y" }));
  });

  it("looks another when anything that is drawn differs", () => {
    for (const name of Object.keys(note)) {
      assert.ok(!looksSame(note, { ...note, [name]: "another" }), name);
    }
  });
});
