// SPDX-License-Identifier: GPL-3.0-or-later
import { say } from "./language.js";
import { endOf, PitchLayout } from "./layout.js";
import { fittingSize, LYRIC_SIZE, PHONEMES_SIZE } from "./text-width.js";

const PADDING = 6;
const WARNING = 10; // the width of the mark of a note with words that are not sung
const OVERHANG = 6; // of a lyric over the next note, where it can't get smaller

/** One note in the roll: its box with the phonemes, and the lyric over it. */
export class NoteView {
  #lyric = document.createElement("span");
  #phonemes = document.createElement("span");
  #more = []; // boxes in further rows, of a note that is held over the end of a row

  constructor() {
    this.element = document.createElement("div");
    this.element.className = "note";
    this.element.setAttribute("role", "option");
    this.element.setAttribute("aria-selected", "false");
    this.element.tabIndex = -1;
    this.#lyric.className = "lyric";
    this.#phonemes.className = "phonemes";
    this.element.append(this.#lyric, " ", this.#phonemes); // two texts, also when read out
  }

  /** Tells which note of the song this is; both are counted from 1. */
  number(track, note) {
    this.element.dataset.track = track;
    this.element.dataset.note = note;
  }

  /** Puts the boxes into their rows. The element itself is put there by the track, in its order. */
  place(note, rows, pitches, rowElement) {
    const first = rows.rowOf(note.start);
    const last = rows.lastRowOf(endOf(note));
    setBox(this.element, note, first, rows, pitches);
    this.#more.forEach((box) => box.remove());
    this.#more = [];
    for (let row = first + 1; row <= last; ++row) {
      const box = document.createElement("div");
      box.className = "held";
      box.dataset.kind = note.kind;
      box.setAttribute("aria-hidden", "true");
      setBox(box, note, row, rows, pitches);
      rowElement(row)?.append(box);
      this.#more.push(box);
    }
  }

  /** Shows the texts. The lyric may go on over the notes after it up to the next lyric. */
  write(note, { bar, boxRoom, lyricRoom }) {
    const { element } = this;
    this.#boxes().forEach((box) => (box.dataset.kind = note.kind));
    element.dataset.lyric = note.lyric;
    element.dataset.phonemes = note.phonemes;
    element.classList.toggle("in-part", note.unsungWords !== "");
    setText(this.#lyric, note.word, LYRIC_SIZE, lyricRoom);
    this.#lyric.style.maxWidth = `${lyricRoom + OVERHANG}px`;
    const padding = PADDING + (note.unsungWords === "" ? 0 : WARNING);
    setText(this.#phonemes, note.phonemes, PHONEMES_SIZE, boxRoom - padding);
    this.describe(note, bar);
  }

  /** Says to a screen reader what the note shows, and to a pointer what it has no room for. */
  describe(note, bar) {
    this.element.setAttribute("aria-label", describeNote(note, bar));
    const isInPart = note.unsungWords !== "";
    this.element.title = isInPart ? `${note.lyric}\n${say("unsungWords", note)}` : note.lyric;
  }

  light(isLit) {
    this.#boxes().forEach((box) => box.classList.toggle("lit", isLit));
  }

  remove() {
    this.#boxes().forEach((box) => box.remove());
  }

  #boxes() {
    return [this.element, ...this.#more];
  }
}

export function placeOf(note, bar) {
  return say("notePlace", { pitch: note.pitchName, bar });
}

function describeNote(note, bar) {
  const kinds = { word: "noteWord", further: "noteFurther", unsung: "noteUnsung" };
  const name = note.unsungWords === "" ? kinds[note.kind] ?? "noteEmpty" : "noteInPart";
  return say(name, { ...note, place: placeOf(note, bar) });
}

function setBox(box, note, row, rows, pitches) {
  const left = Math.max(rows.fraction(note.start, row), 0);
  const right = Math.min(rows.fraction(endOf(note), row), 1);
  box.style.left = `${left * 100}%`;
  box.style.width = `${(right - left) * 100}%`;
  box.style.top = `${pitches.y(note.pitch)}px`;
  box.style.height = `${PitchLayout.boxHeight}px`;
}

function setText(element, text, size, room) {
  element.textContent = text;
  element.style.fontSize = text === "" ? "" : `${fittingSize(text, size, room).toFixed(1)}px`;
}
