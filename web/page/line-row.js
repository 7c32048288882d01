// SPDX-License-Identifier: GPL-3.0-or-later
import { paragraphElement } from "./message.js";
import { lineCounts, unsungReport } from "./reports.js";

const LONGEST = 200; // characters of a line that are shown

/** What there is to say of one line of a text: its syllables, its notes, and its words that are not sung. */
export class LineRow {
  #line;
  #place = document.createElement("span");

  /** `replace(number, before, after)` gets another text for a line, when a proposal is taken. */
  constructor(line, replace) {
    this.#line = line;
    this.element = document.createElement("li");
    this.#place.className = "place";
    const counts = document.createElement("span");
    counts.className = "counts";
    counts.textContent = lineCounts(line);
    this.element.append(this.#place, " ", textElement(line), " ", counts);
    this.element.append(...unsungReport(line, (text) => replace(this.#line.line, line.text, text))
      .map(paragraphElement));
    this.element.classList.toggle("too-long", line.onNotes < line.syllables);
    this.element.dataset.syllables = line.syllables;
    this.element.dataset.notes = line.notes ?? 0;
    this.number(line.line);
  }

  /** Whether the row says the same of another line, apart from its number. */
  tellsOf(line) {
    return isSame(this.#line, line);
  }

  number(line) {
    if (this.element.dataset.line !== String(line)) {
      this.#line = { ...this.#line, line };
      this.element.dataset.line = line;
      this.#place.textContent = line;
    }
  }

  mark(isMarked) {
    if (isMarked) {
      this.element.setAttribute("aria-current", "true");
    } else {
      this.element.removeAttribute("aria-current");
    }
  }
}

function isSame(a, b) {
  return JSON.stringify({ ...a, line: 0 }) === JSON.stringify({ ...b, line: 0 });
}

// Columns count characters.
function textElement({ text, unsung }) {
  const element = document.createElement("span");
  element.className = "line";
  const all = [...text];
  const characters = all.slice(0, LONGEST);
  let end = 0;
  for (const { column, word } of unsung.filter(({ column }) => column <= LONGEST)) {
    const mark = document.createElement("mark");
    mark.textContent = word;
    element.append(characters.slice(end, column - 1).join(""), mark);
    end = column - 1 + [...word].length;
  }
  element.append(characters.slice(end).join(""), all.length > LONGEST ? "…" : "");
  return element;
}
