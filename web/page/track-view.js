// SPDX-License-Identifier: GPL-3.0-or-later
import { changedRange, isSamePlace, looksSame } from "./changes.js";
import { say } from "./language.js";
import { endOf, PitchLayout } from "./layout.js";
import { NoteView } from "./note-view.js";
import { RowView } from "./row-view.js";

/** One track of the roll, row by row. */
export class TrackView {
  #number;
  #track;
  #rows; // how the song is broken into rows
  #pitches;
  #lanesWidth;
  #rowViews = new Map();
  #views = []; // one for each note
  #heading = document.createElement("h2");
  #list = document.createElement("div");

  constructor(number) {
    this.#number = number;
    this.#list.className = "track";
    this.#list.dataset.listOf = number;
    this.#list.setAttribute("role", "listbox");
    this.#list.setAttribute("aria-orientation", "horizontal");
    this.element = document.createElement("section");
    this.element.append(this.#heading, this.#list);
  }

  /** Draws all anew. */
  show(track, rows, lanesWidth) {
    this.#track = track;
    this.#rows = rows;
    this.#lanesWidth = lanesWidth;
    this.#pitches = new PitchLayout(track);
    this.#rowViews.clear();
    this.#views = track.notes.map(() => new NoteView());
    this.#arrangeRows();
    this.#numberFrom(0);
    this.#place(0, track.notes.length);
    this.#write(0, track.notes.length);
    this.translate();
  }

  /** Draws what has changed. */
  update(track) {
    if (!new PitchLayout(track).isSameAs(this.#pitches)) {
      this.show(track, this.#rows, this.#lanesWidth);
      return;
    }
    const before = this.#track.notes;
    const { first, endBefore, endAfter } = changedRange(before, track.notes, looksSame);
    const places = changedRange(before, track.notes, isSamePlace);
    this.#track = track;
    this.#fitViews(first, endBefore, endAfter);
    if (places.first < places.endBefore || places.first < places.endAfter) {
      this.#arrangeRows();
      this.#place(first, endAfter);
    }
    this.#write(this.#lyricBefore(first), endAfter);
  }

  translate() {
    this.#heading.textContent = this.name;
    this.#list.setAttribute("aria-label", this.name);
    this.#track.notes.forEach((note, i) =>
      this.#views[i].describe(note, this.#rows.barAt(note.start)));
    this.#list.querySelectorAll(".gap").forEach((gap) =>
      (gap.textContent = say("emptyBars", gap.dataset)));
  }

  get name() {
    return this.#track.name || say("trackNumber", { number: this.#number });
  }

  get notes() {
    return this.#track.notes;
  }

  barOf(note) {
    return this.#rows.barAt(note.start);
  }

  view(note) {
    return this.#views[note - 1];
  }

  /** The time and the pitch at a point of the window, in the row that is under it or next to it. */
  at(x, y) {
    const distance = ({ top, bottom }) => Math.max(top - y, y - bottom, 0);
    const boxes = [...this.#rowViews.values()]
      .map(({ row, lanes }) => ({ row, box: lanes.getBoundingClientRect() }));
    const { row, box } = boxes.reduce((a, b) => (distance(b.box) < distance(a.box) ? b : a));
    const time = this.#rows.startOf(row) + ((x - box.left) / box.width) * this.#rows.rowLength;
    return { row, time, pitch: this.#pitches.pitchAt(y - box.top) };
  }

  /** Shows a note where it would be put. */
  preview(number, note) {
    const view = this.view(number);
    view.place(note, this.#rows, this.#pitches, (row) => this.#rowViews.get(row)?.lanes);
    const lanes = this.#rowViews.get(this.#rows.rowOf(note.start))?.lanes;
    if (lanes !== undefined && view.element.parentElement !== lanes) {
      lanes.append(view.element);
    }
  }

  /** Shows a note where it is, after a preview that came to nothing. */
  endPreview(number) {
    this.#place(number - 1, number);
  }

  /** The note of another row that begins nearest to a note's start: -1 is the row above. */
  noteInNextRow(number, direction) {
    const rowOf = (note) => this.#rows.rowOf(note.start);
    const fractionOf = (note) => this.#rows.fraction(note.start, rowOf(note));
    const from = this.notes[number - 1];
    const isBeyond = (note) => (rowOf(note) - rowOf(from)) * direction > 0;
    const beyond = this.notes.filter(isBeyond);
    const nearestRow = (direction > 0 ? beyond.at(0) : beyond.at(-1))?.start;
    if (nearestRow === undefined) {
      return undefined;
    }
    const row = this.#rows.rowOf(nearestRow);
    const off = (note) => Math.abs(fractionOf(note) - fractionOf(from));
    const nearest = beyond.filter((note) => rowOf(note) === row)
      .reduce((a, b) => (off(b) < off(a) ? b : a));
    return this.notes.indexOf(nearest) + 1;
  }

  // Brings the views in line with a list in which some notes were replaced by others.
  #fitViews(first, endBefore, endAfter) {
    const surplus = endBefore - endAfter;
    if (surplus > 0) {
      this.#views.splice(endAfter, surplus).forEach((view) => view.remove());
    } else if (surplus < 0) {
      const added = Array.from({ length: -surplus }, () => new NoteView());
      this.#views.splice(endBefore, 0, ...added);
    }
    if (surplus !== 0) {
      this.#numberFrom(first);
    }
  }

  #numberFrom(first) {
    for (let i = first; i < this.#views.length; ++i) {
      this.#views[i].number(this.#number, i + 1);
    }
  }

  #arrangeRows() {
    const wanted = this.#rows.rowsOf(this.#track);
    const shown = [...this.#rowViews.keys()];
    if (wanted.length === shown.length && wanted.every((row, i) => row === shown[i])) {
      return;
    }
    const known = this.#rowViews;
    this.#rowViews = new Map(wanted.map((row) =>
      [row, known.get(row) ?? new RowView(row, this.#rows, this.#pitches)]));
    this.#list.replaceChildren(...wanted.flatMap((row, i) => {
      const isAfterGap = i > 0 && wanted[i - 1] + 1 !== row;
      const { element } = this.#rowViews.get(row);
      return isAfterGap ? [this.#gap(wanted[i - 1] + 1, row), element] : [element];
    }));
  }

  // Rows without notes in the middle of a song are told of in one line.
  #gap(firstRow, endRow) {
    const gap = document.createElement("div");
    gap.className = "gap";
    gap.setAttribute("aria-hidden", "true");
    gap.dataset.first = this.#rows.barAt(this.#rows.startOf(firstRow));
    gap.dataset.last = this.#rows.barAt(this.#rows.startOf(endRow)) - 1;
    gap.textContent = say("emptyBars", gap.dataset);
    return gap;
  }

  #place(first, end) {
    const lanesOf = (row) => this.#rowViews.get(row)?.lanes;
    // From the end on, so that the note behind each one is already where it belongs.
    for (let i = end - 1; i >= first; --i) {
      const note = this.notes[i];
      this.#views[i].place(note, this.#rows, this.#pitches, lanesOf);
      const lanes = lanesOf(this.#rows.rowOf(note.start));
      const next = this.#views[i + 1]?.element;
      lanes.insertBefore(this.#views[i].element, next?.parentElement === lanes ? next : null);
    }
  }

  #write(first, end) {
    for (let i = first; i < end; ++i) {
      const note = this.notes[i];
      this.#views[i].write(note, {
        bar: this.barOf(note),
        boxRoom: this.#room(note, endOf(note)),
        lyricRoom: note.word === "" ? 0 : this.#room(note, this.#lyricEnd(i)),
      });
    }
  }

  // A lyric may go on over the notes after it, up to the next lyric or a box that is in its way.
  #lyricEnd(index) {
    const note = this.notes[index];
    let i = index + 1;
    while (i < this.notes.length && this.notes[i].word === "" &&
           !this.#pitches.isOverLyric(this.notes[i], note)) {
      ++i;
    }
    return this.notes[i]?.start ?? Infinity;
  }

  // The pixels from a note's start to a time, or to the end of its row.
  #room(note, end) {
    const row = this.#rows.rowOf(note.start);
    const [from, to] = [note.start, end].map((time) => this.#rows.fraction(time, row));
    return (Math.min(to, 1) - from) * this.#lanesWidth;
  }

  // A new lyric takes room from the one before it.
  #lyricBefore(index) {
    let i = Math.max(index - 1, 0);
    while (i > 0 && this.notes[i].word === "") {
      --i;
    }
    return Math.min(i, index);
  }
}
