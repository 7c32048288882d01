// SPDX-License-Identifier: GPL-3.0-or-later
import { refOf } from "./roll.js";

const GRID = 0.25; // in quarter notes
const SLACK = 4; // pixels that a click may be off
const HANDLE = 9; // pixels at the right end of a note
const HIGHEST = 127;

/** Moves notes, and lengthens them by their right end, while a pointer is held down. */
export class Dragging {
  #roll;
  #move;
  #drag;
  #hasDragged = false;

  /** `move(ref, {start, length, pitch})` is called when a note is let go. */
  constructor(roll, move) {
    this.#roll = roll;
    this.#move = move;
    const listen = (type, listener) => roll.element.addEventListener(type, listener);
    listen("pointerdown", (event) => this.#begin(event));
    listen("pointermove", (event) => this.#goOn(event));
    listen("pointerup", () => this.#end());
    listen("pointercancel", () => this.#cancel());
  }

  /** Whether the click that comes now only ended a drag. */
  get hasDragged() {
    return this.#hasDragged;
  }

  #begin(event) {
    this.#hasDragged = false;
    const ref = refOf(event.target);
    if (ref === undefined || event.button !== 0 || !this.#isFree(event, ref)) {
      return;
    }
    const box = event.target.closest("[data-note]").getBoundingClientRect();
    const lengthens = box.width > 2 * HANDLE && event.clientX > box.right - HANDLE;
    const { clientX: x, clientY: y } = event;
    this.#drag = { ref, x, y, lengthens, note: this.#roll.note(ref), isMoving: false };
    this.#drag.from = this.#at(x, y);
  }

  // A finger that goes over notes scrolls the page, but for the chosen note.
  #isFree(event, ref) {
    const { track, note } = this.#roll.chosen;
    return event.pointerType === "mouse" || (track === ref.track && note === ref.note);
  }

  #at(x, y) {
    return this.#roll.tracks[this.#drag.ref.track - 1].at(x, y);
  }

  #goOn({ pointerId, clientX: x, clientY: y }) {
    const drag = this.#drag;
    if (drag === undefined) {
      return;
    }
    if (!drag.isMoving && Math.hypot(x - drag.x, y - drag.y) > SLACK) {
      drag.isMoving = this.#hasDragged = true;
      // The note itself goes from row to row, and would lose the pointer by that.
      this.#roll.element.setPointerCapture(pointerId);
      this.#roll.view(drag.ref).element.classList.add("dragged");
    }
    if (drag.isMoving) {
      drag.to = this.#target(this.#at(x, y));
      this.#roll.tracks[drag.ref.track - 1].preview(drag.ref.note, drag.to);
    }
  }

  #target({ time, pitch }) {
    const { note, from, lengthens } = this.#drag;
    const later = Math.round((time - from.time) / GRID) * GRID;
    if (lengthens) {
      return { ...note, length: Math.max(note.length + later, GRID) };
    }
    const higher = Math.min(Math.max(note.pitch + pitch - from.pitch, 0), HIGHEST);
    return { ...note, start: Math.max(note.start + later, 0), pitch: higher };
  }

  #end() {
    const drag = this.#drag;
    this.#cancel();
    if (drag?.isMoving) {
      this.#move(drag.ref, drag.to);
    }
  }

  #cancel() {
    const drag = this.#drag;
    this.#drag = undefined;
    if (drag?.isMoving) {
      this.#roll.view(drag.ref).element.classList.remove("dragged");
      this.#roll.tracks[drag.ref.track - 1].endPreview(drag.ref.note);
    }
  }
}
