// SPDX-License-Identifier: GPL-3.0-or-later
import { refOf } from "./roll.js";

const GRID = 0.25; // in quarter notes
const ALT = "Alt+";

/** What the keys do on a note of the roll. */
export class RollKeys {
  #roll;
  #editing;
  #typing;
  #playing;

  constructor(roll, editing, typing, playing) {
    this.#roll = roll;
    this.#editing = editing;
    this.#typing = typing;
    this.#playing = playing;
    roll.element.addEventListener("keydown", (event) => this.#pressed(event));
  }

  #pressed(event) {
    const ref = refOf(event.target);
    if (ref === undefined || event.ctrlKey || event.metaKey || event.isComposing) {
      return;
    }
    const act = this.#actions(ref)[nameOf(event)];
    if (act) {
      event.preventDefault();
      act();
    } else if (!event.altKey && (event.key.length === 1 || event.key === "Process")) {
      // The key goes on into the field, or to the input method that works there.
      this.#typing.open(ref, { isEmpty: true });
    }
  }

  #actions(ref) {
    const { track, note } = ref;
    const go = (number) => () => this.#goTo({ track, note: number });
    const change = (by) => () => this.#editing.move(ref, this.#changed(ref, by));
    return {
      Enter: () => this.#typing.open(ref),
      F2: () => this.#typing.open(ref),
      "Shift+Enter": () => this.#editing.addAfter(ref),
      Insert: () => this.#editing.addAfter(ref),
      Delete: () => this.#editing.remove(ref),
      Backspace: () => this.#editing.remove(ref),
      " ": () => this.#playing.toggle(ref),
      ArrowLeft: go(note - 1),
      ArrowRight: go(note + 1),
      Home: go(1),
      End: go(this.#roll.tracks[track - 1].notes.length),
      ArrowUp: () => this.#goToRow(ref, -1),
      ArrowDown: () => this.#goToRow(ref, 1),
      [`${ALT}ArrowLeft`]: change({ start: -GRID }),
      [`${ALT}ArrowRight`]: change({ start: GRID }),
      [`${ALT}ArrowUp`]: change({ pitch: 1 }),
      [`${ALT}ArrowDown`]: change({ pitch: -1 }),
      [`${ALT}Shift+ArrowLeft`]: change({ length: -GRID }),
      [`${ALT}Shift+ArrowRight`]: change({ length: GRID }),
    };
  }

  #changed(ref, { start = 0, length = 0, pitch = 0 }) {
    const note = this.#roll.note(ref);
    return { start: note.start + start, length: note.length + length, pitch: note.pitch + pitch };
  }

  #goTo(ref) {
    if (this.#roll.note(ref) !== undefined) {
      this.#roll.focus(ref);
    }
  }

  // Beyond the first and the last row of a track are the tracks next to it.
  #goToRow({ track, note }, direction) {
    const inTrack = this.#roll.tracks[track - 1].noteInNextRow(note, direction);
    if (inTrack !== undefined) {
      this.#roll.focus({ track, note: inTrack });
      return;
    }
    const next = this.#roll.tracks[track - 1 + direction];
    if (next?.notes.length > 0) {
      this.#goTo({ track: track + direction, note: direction > 0 ? 1 : next.notes.length });
    }
  }
}

function nameOf(event) {
  return `${event.altKey ? ALT : ""}${event.shiftKey ? "Shift+" : ""}${event.key}`;
}
