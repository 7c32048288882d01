// SPDX-License-Identifier: GPL-3.0-or-later

/**
 * Where two lists differ: what stands from `first` on, up to `endBefore` in the one and to `endAfter`
 * in the other, is all that has changed.
 */
export function changedRange(before, after, isSame) {
  const shorter = Math.min(before.length, after.length);
  let first = 0;
  while (first < shorter && isSame(before[first], after[first])) {
    ++first;
  }
  let same = 0;
  while (same < shorter - first && isSame(before.at(-1 - same), after.at(-1 - same))) {
    ++same;
  }
  return { first, endBefore: before.length - same, endAfter: after.length - same };
}

/** Whether two notes look the same in the roll. */
export function looksSame(a, b) {
  return isSamePlace(a, b) && a.lyric === b.lyric && a.word === b.word &&
    a.phonemes === b.phonemes && a.kind === b.kind && a.unsungWords === b.unsungWords;
}

export function isSamePlace(a, b) {
  return a.start === b.start && a.length === b.length && a.pitch === b.pitch;
}
