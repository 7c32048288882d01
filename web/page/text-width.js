// SPDX-License-Identifier: GPL-3.0-or-later

export const LYRIC_SIZE = 15;
export const PHONEMES_SIZE = 12;
const SMALLEST = 9;
const GAP = 6; // between one note's text and the next
const LEAST_QUARTER = 44;

const canvas = document.createElement("canvas").getContext("2d");
const known = new Map();

/** The width of a text at a size of one pixel. Syllables come again and again, so it is kept. */
function widthOf(text) {
  let width = known.get(text);
  if (width === undefined) {
    canvas.font = `bold 100px ${getComputedStyle(document.body).fontFamily}`;
    width = canvas.measureText(text).width / 100;
    known.set(text, width);
  }
  return width;
}

/** The size at which a text has room, and no smaller than can be read. */
export function fittingSize(text, size, room) {
  return Math.max(Math.min(size, room / (widthOf(text) || 1)), SMALLEST);
}

/** The width of a quarter note at which nearly all texts of the song have room. */
export function neededQuarter(song) {
  const needs = song.tracks.flatMap((track) => track.notes.map(neededBy)).sort((a, b) => a - b);
  return Math.max(LEAST_QUARTER, needs[Math.floor(needs.length * 0.95)] ?? 0);
}

function neededBy(note) {
  const lyric = widthOf(note.word) * LYRIC_SIZE;
  const phonemes = widthOf(note.phonemes) * PHONEMES_SIZE + GAP;
  return Math.max(note.kind === "word" ? lyric / 2 : 0, phonemes) / note.length;
}
