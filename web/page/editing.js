// SPDX-License-Identifier: GPL-3.0-or-later
import { Mistake } from "./core.js";
import { say } from "./language.js";
import { endOf } from "./layout.js";
import { checkReport, fitReport, layReport, warningsReport } from "./reports.js";
import { UnsungWords } from "./unsung-words.js";

const FIRST_NOTE = { start: 0, length: 1, pitch: 60 };

/** All that a person does to the song: through the extension, into the roll, with a word about it. */
export class Editing {
  #core;
  #roll;
  #message;
  #changed;
  #unsungWords = new UnsungWords();

  /**
   * `changed(song, isOpened)` is called with the song after each edit, and with one that was opened,
   * before it is drawn.
   */
  constructor(core, roll, message, changed) {
    this.#core = core;
    this.#roll = roll;
    this.#message = message;
    this.#changed = changed;
  }

  openExample(language) {
    this.#attempt(() => {
      this.#opened(this.#core.openExample(language));
      this.#say("exampleOpened");
    });
  }

  open(bytes, fileName) {
    this.#attempt(() => {
      const song = this.#core.open(bytes, fileName);
      this.#opened(song);
      const notes = song.tracks.reduce((sum, track) => sum + track.notes.length, 0);
      this.#message.show(() => [
        { sentence: say("opened", { title: song.name, notes }) },
        ...warningsReport(song.warnings),
      ]);
    });
  }

  /** Types a lyric and tells of it. Says whether the note took it. */
  type(ref, text) {
    return this.#attempt(() => {
      const song = this.#core.type(ref, text);
      this.#unsungWords.learn(song.check);
      this.#edited(song);
      this.#report(ref, song.check);
    });
  }

  /** Tells of the lyric that was typed before. */
  keep(ref) {
    return this.#attempt(() => {
      if (this.#roll.note(ref).typed !== "") {
        this.#report(ref, this.#core.check(ref));
      }
    });
  }

  add(track, note) {
    this.#attempt(() => {
      const song = this.#core.add(track, note);
      this.#edited(song);
      this.#stayAt({ track, note: song.note });
      this.#sayPlace("noteAdded", { track, note: song.note });
    });
  }

  /** Adds a note as long and as high as the one before it, or the first one of a track. */
  addAfter(ref) {
    const before = this.#roll.note(ref);
    const next = this.#roll.note({ ...ref, note: ref.note + 1 });
    const note = before ? { ...before, start: endOf(before) } : FIRST_NOTE;
    const room = (next?.start ?? Infinity) - note.start;
    this.add(ref.track, { ...note, length: room > 0 ? Math.min(note.length, room) : note.length });
  }

  move(ref, note) {
    this.#attempt(() => {
      const song = this.#core.move(ref, note);
      this.#edited(song);
      this.#stayAt({ track: ref.track, note: song.note });
      this.#sayPlace("noteMoved", { track: ref.track, note: song.note });
    });
  }

  remove(ref) {
    this.#attempt(() => {
      this.#edited(this.#core.remove(ref));
      this.#stayAt(ref);
      this.#say("noteDeleted");
    });
  }

  undo() {
    this.#attempt(() => {
      this.#edited(this.#core.undo());
      this.#say("undone");
    });
  }

  redo() {
    this.#attempt(() => {
      this.#edited(this.#core.redo());
      this.#say("redone");
    });
  }

  /** Fits all words; `ways` are those of the core beyond hyphens and other pronunciations. */
  fit(ways = {}) {
    this.#say("fitting");
    // Long songs take a while; the line is drawn before.
    setTimeout(() => this.#attempt(() => {
      const song = this.#core.fit(ways);
      this.#edited(song);
      this.#message.show(() =>
        fitReport(song.fit, ways, (ref) => this.#roll.focus(ref), (more) => this.fit(more)));
    }));
  }

  /**
   * Lays a text under the melody of a track. `unsung` are its words that are not sung as they are.
   * Says whether it was laid.
   */
  lay(track, text, unsung) {
    return this.#attempt(() =>
      this.#laid(track, this.#core.lay(track, text), unsung, () => this.#layByGuesses(track, text, unsung)));
  }

  // In place of the edit before, so that there is one to take back.
  #layByGuesses(track, text, unsung) {
    this.#attempt(() => {
      this.#core.undo();
      try {
        this.#laid(track, this.#core.lay(track, text, { guesses: true }), unsung);
      } catch (mistake) {
        this.#core.redo();
        throw mistake;
      }
      this.#stayAt(this.#roll.chosen);
    });
  }

  #laid(track, song, unsung, layByGuesses) {
    this.#edited(song);
    this.#message.show(() =>
      layReport(song.laid, unsung, (note) => this.#roll.focus({ track, note }), layByGuesses));
  }

  #opened(song) {
    this.#unsungWords.mark(song);
    this.#changed(song, true);
    this.#roll.show(song);
  }

  #edited(song) {
    this.#unsungWords.mark(song);
    this.#changed(song, false);
    this.#roll.update(song);
  }

  #stayAt(ref) {
    this.#roll.focus(ref);
  }

  #report(ref, check) {
    const typeAgain = (text) => {
      this.type(ref, text);
      this.#stayAt(ref);
    };
    this.#message.show(() => checkReport(check, typeAgain));
  }

  #say(name) {
    this.#message.show(() => [{ sentence: say(name) }]);
  }

  #sayPlace(name, ref) {
    const place = () => this.#roll.placeOf(ref);
    this.#message.show(() => [{ sentence: say(name, { place: place() }) }]);
  }

  // A mistake is told of, and the song stays as it was.
  #attempt(act) {
    try {
      act();
      return true;
    } catch (mistake) {
      if (!(mistake instanceof Mistake)) {
        throw mistake;
      }
      this.#message.show(() => [{ sentence: mistake.message }]);
      return false;
    }
  }
}
