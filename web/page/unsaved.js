// SPDX-License-Identifier: GPL-3.0-or-later
import { isSamePlace } from "./changes.js";

/** Whether a song has changes that no file holds. What an undo brings back was saved before. */
export class Unsaved {
  #saved = { tracks: [] };
  #now = this.#saved;

  /** A song that was opened. */
  opened(song) {
    this.#saved = this.#now = song;
  }

  edited(song) {
    this.#now = song;
  }

  /** All that there is was handed out in a file. */
  saved() {
    this.#saved = this.#now;
  }

  get isThere() {
    const [before, now] = [this.#saved.tracks, this.#now.tracks];
    return !isEach(before, now, (a, b) => isEach(a.notes, b.notes, holdsTheSame));
  }
}

function isEach(before, now, isSame) {
  return before === now ||
    (before.length === now.length && before.every((item, i) => isSame(item, now[i])));
}

function holdsTheSame(a, b) {
  return isSamePlace(a, b) && a.lyric === b.lyric && a.typed === b.typed;
}
