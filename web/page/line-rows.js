// SPDX-License-Identifier: GPL-3.0-or-later
import { changedRange } from "./changes.js";
import { LineRow } from "./line-row.js";

const DRAWN = 800; // rows at first
const MORE = 200; // and when the list is scrolled to either end of them
const NEAR = 300; // pixels

/**
 * The rows that tell of the lines of a text. Of a long text, those around the line that is edited are
 * drawn, and more when the list is scrolled to them.
 */
export class LineRows {
  #list;
  #box; // which scrolls
  #replace;
  #lines = [];
  #first = 0; // index of the line of the first row
  #rows = [];
  #marked;

  /** For `replace`, see LineRow. */
  constructor(list, replace) {
    this.#list = list;
    this.#box = list.parentElement;
    this.#replace = replace;
    this.#box.addEventListener("scroll", () => this.#drawMore());
  }

  /** Shows what there is to say of lines, each with its "text"; the one of that number is edited. */
  show(lines, number) {
    this.#lines = lines;
    this.#first = Math.min(this.#first, Math.max(lines.length - DRAWN, 0));
    this.#draw(this.#first, this.#first + Math.max(this.#rows.length, DRAWN));
    this.mark(number);
  }

  /** Marks the row of the line of that number, or of one before it, and brings it into sight. */
  mark(number) {
    const index = Math.max(this.#lines.filter(({ line }) => line <= number).length - 1, 0);
    if (index < this.#first || index >= this.#first + this.#rows.length) {
      const first = Math.max(index - DRAWN / 2, 0);
      this.#draw(first, first + DRAWN);
    }
    this.#marked?.mark(false);
    this.#marked = this.#rows[index - this.#first];
    this.#marked?.mark(true);
    this.#bringIntoSight(this.#marked?.element);
  }

  /** Draws all rows anew when lines are shown again, as in another language. */
  forget() {
    this.#rows = [];
    this.#list.replaceChildren();
  }

  // Rows stay as they are where only the number of their line has changed.
  #draw(from, to) {
    const lines = this.#lines.slice(from, to);
    const { first, endBefore, endAfter } = changedRange(this.#rows, lines, (row, line) => row.tellsOf(line));
    const added = lines.slice(first, endAfter).map((line) => new LineRow(line, this.#replace));
    const gone = this.#rows.splice(first, endBefore - first, ...added);
    gone.forEach((row) => row.element.remove());
    const next = this.#rows[first + added.length]?.element ?? null;
    const fragment = document.createDocumentFragment();
    fragment.append(...added.map(({ element }) => element));
    this.#list.insertBefore(fragment, next);
    this.#rows.forEach((row, i) => row.number(lines[i].line));
    this.#first = from;
  }

  #drawMore() {
    const { scrollTop, scrollHeight, clientHeight } = this.#box;
    const end = this.#first + this.#rows.length;
    if (end < this.#lines.length && scrollTop + clientHeight > scrollHeight - NEAR) {
      this.#draw(this.#first, end + MORE);
    } else if (this.#first > 0 && scrollTop < NEAR) {
      this.#draw(Math.max(this.#first - MORE, 0), end);
      this.#box.scrollTop += this.#box.scrollHeight - scrollHeight; // what was in sight stays there
    }
  }

  // The page itself is not scrolled. Of a row with more than there is room for, the top is shown.
  #bringIntoSight(element) {
    if (element === undefined) {
      return;
    }
    const row = element.getBoundingClientRect();
    const box = this.#box.getBoundingClientRect();
    const [above, below] = [row.top - box.top, row.bottom - box.bottom];
    this.#box.scrollTop += Math.min(above, 0) || Math.max(Math.min(above, below), 0);
  }
}
