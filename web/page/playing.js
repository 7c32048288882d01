// SPDX-License-Identifier: GPL-3.0-or-later
import { endOf } from "./layout.js";
import { Tones } from "./tones.js";

const SECONDS_PER_QUARTER = 0.5;
const AHEAD = 0.15; // seconds that tones are ordered before they sound
const TICK = 25; // milliseconds

/** Plays the song: a tone for each note, and the note that sounds is lit. */
export class Playing {
  #roll;
  #changed;
  #tones = new Tones();
  #timer;
  #coming = []; // notes whose tones are still to be ordered, in their order
  #toLight = [];
  #lit = [];
  #startedAt;
  #from;

  /** `changed(isPlaying)` is called when playing begins and ends. */
  constructor(roll, changed) {
    this.#roll = roll;
    this.#changed = changed;
  }

  get isPlaying() {
    return this.#timer !== undefined;
  }

  /** Plays from a note on, or from the beginning of the song. */
  play(from) {
    this.stop();
    const notes = notesOf(this.#roll);
    this.#from = from ? this.#roll.note(from)?.start ?? 0 : notes[0]?.start ?? 0;
    this.#coming = notes.filter((note) => note.start >= this.#from);
    this.#toLight = [...this.#coming];
    this.#tones.start();
    this.#startedAt = performance.now();
    this.#timer = setInterval(() => this.#tick(), TICK);
    this.#changed(true);
    this.#tick();
  }

  stop() {
    if (!this.isPlaying) {
      return;
    }
    clearInterval(this.#timer);
    this.#timer = undefined;
    this.#tones.stop();
    this.#lit.forEach(({ view }) => view.light(false));
    this.#lit = [];
    this.#changed(false);
  }

  toggle(from) {
    if (this.isPlaying) {
      this.stop();
    } else {
      this.play(from);
    }
  }

  #secondsUntil(time) {
    const now = (performance.now() - this.#startedAt) / 1000;
    return (time - this.#from) * SECONDS_PER_QUARTER - now;
  }

  #tick() {
    for (const note of takeWhile(this.#coming, ({ start }) => this.#secondsUntil(start) < AHEAD)) {
      const delay = Math.max(this.#secondsUntil(note.start), 0);
      this.#tones.sound(note, delay, note.length * SECONDS_PER_QUARTER);
    }
    this.#lit.filter((note) => this.#hasEnded(note)).forEach(({ view }) => view.light(false));
    this.#lit = this.#lit.filter((note) => !this.#hasEnded(note));
    takeWhile(this.#toLight, ({ start }) => this.#secondsUntil(start) <= 0)
      .forEach((note) => this.#light(note));
    if (this.#toLight.length === 0 && this.#lit.length === 0) {
      this.stop();
    }
  }

  #hasEnded(note) {
    return this.#secondsUntil(endOf(note)) <= 0;
  }

  #light(note) {
    note.view.light(true);
    note.view.element.scrollIntoView({ block: "nearest" });
    this.#lit.push(note);
  }
}

// The notes of all tracks in the order in which they sound.
function notesOf(roll) {
  return roll.tracks
    .flatMap((track) => track.notes.map((note, i) => ({
      start: note.start,
      length: note.length,
      pitch: note.pitch,
      isSung: note.phonemes !== "",
      view: track.view(i + 1),
    })))
    .sort((a, b) => a.start - b.start);
}

function takeWhile(list, isWanted) {
  const end = list.findIndex((item) => !isWanted(item));
  return list.splice(0, end === -1 ? list.length : end);
}
