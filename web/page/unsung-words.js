// SPDX-License-Identifier: GPL-3.0-or-later

/** Which words of typed lyrics are not sung though others beside them are, as far as it was told. */
export class UnsungWords {
  #wordsOf = new Map(); // by the whole lyric, whatever note it is typed into

  /** Hears what the extension has found in a lyric. */
  learn({ lyric, findings }) {
    this.#wordsOf.set(lyric, findings.filter(({ sung }) => !sung).map(({ word }) => word).join(" "));
  }

  /** Gives each note its `unsungWords`. Of a note that is not sung at all, that is told already. */
  mark(song) {
    for (const { notes } of song.tracks) {
      for (const note of notes) {
        note.unsungWords = (note.kind === "word" && this.#wordsOf.get(note.typed)) || "";
      }
    }
  }
}
