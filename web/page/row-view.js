// SPDX-License-Identifier: GPL-3.0-or-later
import { PitchLayout } from "./layout.js";

const OCTAVE = 12;

/** One row of a track: its bars, and the pitches at its left. The notes are put into `lanes`. */
export class RowView {
  constructor(row, rows, pitches) {
    this.row = row;
    this.lanes = make("lanes");
    this.lanes.append(...rows.barsOf(row).map((bar) => barLine(bar, row, rows)));
    this.lanes.append(...octavesOf(pitches).map((pitch) => octaveLine(pitch, pitches)));
    this.lanes.style.setProperty("--beat", `${(rows.beat / rows.rowLength) * 100}%`);
    const labels = make("labels");
    labels.append(...octavesOf(pitches).map((pitch) => octaveLabel(pitch, pitches)));
    this.element = make("row");
    this.element.style.height = `${pitches.height}px`;
    this.element.append(labels, this.lanes);
  }
}

function barLine({ start, number }, row, rows) {
  const bar = make("bar", String(number));
  bar.style.left = `${rows.fraction(start, row) * 100}%`;
  return bar;
}

function octavesOf({ lowest, highest }) {
  const first = Math.ceil(lowest / OCTAVE);
  const count = Math.floor(highest / OCTAVE) - first + 1;
  return Array.from({ length: count }, (_, i) => (first + i) * OCTAVE);
}

function octaveLine(pitch, pitches) {
  const line = make("octave");
  line.style.top = `${middleOf(pitch, pitches)}px`;
  return line;
}

function octaveLabel(pitch, pitches) {
  const label = make("", `C${pitch / OCTAVE - 1}`);
  label.style.top = `${middleOf(pitch, pitches)}px`;
  return label;
}

function middleOf(pitch, pitches) {
  return pitches.y(pitch) + PitchLayout.boxHeight / 2;
}

// All of a row but its notes is for the eye alone: each note says its pitch and its bar itself.
function make(kind, text = "") {
  const element = document.createElement("div");
  element.className = kind;
  element.textContent = text;
  if (kind !== "row" && kind !== "lanes") {
    element.setAttribute("aria-hidden", "true");
  }
  return element;
}
