// SPDX-License-Identifier: GPL-3.0-or-later

export const MOST_BYTES = 256 * 1024; // in UTF-8
export const MOST_LINES = 10_000;

export function linesOf(text) {
  return text.split(/\r\n|\r|\n/);
}

export function hasSeveralLines(text) {
  return linesOf(text).filter((line) => line.trim() !== "").length > 1;
}

/** The number of the line in which a place of the text is, from 1. */
export function lineAt(text, place) {
  return linesOf(text.slice(0, place)).length;
}

/** Where a line begins and ends in the text of a text area. */
export function rangeOf(text, number) {
  const before = linesOf(text).slice(0, number);
  const end = before.reduce((sum, line) => sum + line.length + 1, -1);
  return { begin: end - before.at(-1).length, end };
}

/** Which limit a text is beyond, as the name of a text of the page; undefined if it is within all. */
export function limitBeyond(text) {
  // No character takes more than three bytes for each of its units.
  if (text.length * 3 > MOST_BYTES && new TextEncoder().encode(text).length > MOST_BYTES) {
    return "tooManyBytes";
  }
  return linesOf(text).length > MOST_LINES ? "tooManyLines" : undefined;
}
