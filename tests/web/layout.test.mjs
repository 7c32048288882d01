// SPDX-License-Identifier: GPL-3.0-or-later
import assert from "node:assert/strict";
import { describe, it } from "node:test";
import { PitchLayout, RowLayout } from "../../web/page/layout.js";

const FOUR_FOUR = { beats: 4, beatType: 4 };

function track(...notes) {
  return { notes: notes.map(([start, length, pitch = 60]) => ({ start, length, pitch })) };
}

function song(tracks, more = {}) {
  return { time: FOUR_FOUR, pickup: 0, tracks, ...more };
}

describe("Rows", () => {
  it("hold as many whole bars as have room", () => {
    const rows = new RowLayout(song([track([0, 100])]), 1000, 50);
    assert.equal(rows.rowLength, 5 * 4);
    assert.equal(rows.rowOf(19.9), 0);
    assert.equal(rows.rowOf(20), 1);
  });

  it("hold whole beats where a bar has no room", () => {
    assert.equal(new RowLayout(song([track([0, 100])]), 300, 100).rowLength, 4);
    assert.equal(new RowLayout(song([track([0, 100])]), 250, 100).rowLength, 2);
    assert.equal(new RowLayout(song([track([0, 100])]), 50, 100).rowLength, 1);
    const waltz = song([track([0, 9])], { time: { beats: 3, beatType: 4 } });
    assert.equal(new RowLayout(waltz, 190, 100).rowLength, 1);
  });

  it("begin with the incomplete bar, which is number 0", () => {
    const rows = new RowLayout(song([track([0, 100])], { pickup: 1 }), 400, 50);
    assert.equal(rows.startOf(0), -3);
    assert.deepEqual(rows.barsOf(0).map(({ number }) => number), [0, 1]);
    assert.equal(rows.barAt(0), 0);
    assert.equal(rows.barAt(1), 1);
  });

  it("number each bar where it begins", () => {
    const rows = new RowLayout(song([track([0, 100])]), 250, 100);
    assert.deepEqual(rows.barsOf(0), [{ start: 0, number: 1 }]);
    assert.deepEqual(rows.barsOf(1), []);
    assert.deepEqual(rows.barsOf(2), [{ start: 4, number: 2 }]);
  });

  it("take sums of thirds for what they are nearly", () => {
    const rows = new RowLayout(song([track([0, 100])]), 400, 50);
    const third = 1 / 3;
    const bar = Array.from({ length: 24 }).reduce((sum) => sum + third, 0);
    assert.notEqual(bar, 8);
    assert.equal(rows.rowOf(bar), 1);
    assert.equal(rows.lastRowOf(bar), 0);
  });

  it("are shown with a free beat at the end and without long gaps", () => {
    const full = track([0, 8]);
    const rows = new RowLayout(song([full]), 400, 50);
    assert.deepEqual(rows.rowsOf(full), [0, 1]);
    assert.deepEqual(rows.rowsOf(track([0, 7])), [0]);
    assert.deepEqual(rows.rowsOf(track([0, 1], [24, 1])), [0, 1, 2, 3]);
    assert.deepEqual(rows.rowsOf(track([0, 1], [800_000, 1])), [0, 100_000]);
  });
});

describe("Pitches", () => {
  it("stand one below the other with room to move a note", () => {
    const pitches = new PitchLayout(track([0, 1, 60], [1, 1, 64]));
    assert.ok(pitches.y(64) < pitches.y(60));
    assert.deepEqual([pitches.lowest, pitches.highest], [58, 66]);
    assert.equal(pitches.pitchAt(pitches.y(61) + PitchLayout.boxHeight / 2), 61);
  });

  it("stay within what a keyboard has", () => {
    const pitches = new PitchLayout(track([0, 1, 0], [1, 1, 127]));
    assert.deepEqual([pitches.lowest, pitches.highest], [0, 127]);
    assert.ok(pitches.height < 300);
    assert.equal(pitches.pitchAt(-1000), 127);
    assert.equal(pitches.pitchAt(1000), 0);
  });

  it("have room in a track without notes", () => {
    assert.ok(new PitchLayout(track()).height > 100);
  });
});
