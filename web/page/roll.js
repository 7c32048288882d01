// SPDX-License-Identifier: GPL-3.0-or-later
import { RowLayout } from "./layout.js";
import { placeOf } from "./note-view.js";
import { neededQuarter } from "./text-width.js";
import { TrackView } from "./track-view.js";

const LABELS_WIDTH = 30;

/** The piano roll: all tracks of a song, and which of its notes is chosen. */
export class Roll {
  #song = { time: { beats: 4, beatType: 4 }, pickup: 0, tracks: [] };
  #tracks = [];
  #width = 0;
  #chosen = { track: 1, note: 1 };

  constructor(element) {
    this.element = element;
    element.style.setProperty("--labels", `${LABELS_WIDTH}px`);
    element.addEventListener("focusin", ({ target }) => {
      const ref = refOf(target);
      if (ref !== undefined) {
        this.choose(ref);
      }
    });
    new ResizeObserver(() => this.#widthChanged()).observe(element);
  }

  /** Draws another song. */
  show(song) {
    this.#song = song;
    this.#chosen = { track: Math.max(song.tracks.findIndex((t) => t.notes.length > 0), 0) + 1, note: 1 };
    this.#tracks = song.tracks.map((_, i) => new TrackView(i + 1));
    this.#drawAll();
    this.element.replaceChildren(...this.#tracks.map((track) => track.element));
  }

  /** Draws what an edit has changed. */
  update(song) {
    this.#song = song;
    this.#keepingFocus(() => {
      song.tracks.forEach((track, i) => this.#tracks[i].update(track));
      this.choose(this.#chosen);
    });
  }

  translate() {
    this.#tracks.forEach((track) => track.translate());
  }

  get tracks() {
    return this.#tracks;
  }

  get chosen() {
    return this.#chosen;
  }

  note({ track, note }) {
    return this.#tracks[track - 1]?.notes[note - 1];
  }

  view({ track, note }) {
    return this.#tracks[track - 1]?.view(note);
  }

  placeOf(ref) {
    const note = this.note(ref);
    return placeOf(note, this.#tracks[ref.track - 1].barOf(note));
  }

  /** Makes a note, or the last one if the track has fewer, the one that the Tab key comes to. */
  choose({ track, note }) {
    this.#mark(false);
    const last = this.#tracks[track - 1]?.notes.length ?? 0;
    this.#chosen = { track, note: Math.max(Math.min(note, last), 1) };
    this.#mark(true);
  }

  focus(ref = this.#chosen) {
    this.choose(ref);
    this.view(this.#chosen)?.element.focus();
  }

  /** The track and the place in it at a point of the window. */
  at(x, y) {
    const list = document.elementFromPoint(x, y)?.closest("[data-list-of]");
    if (!list) {
      return undefined;
    }
    const track = Number(list.dataset.listOf);
    return { track, ...this.#tracks[track - 1].at(x, y) };
  }

  #mark(isChosen) {
    const element = this.view(this.#chosen)?.element;
    element?.setAttribute("aria-selected", String(isChosen));
    if (element) {
      element.tabIndex = isChosen ? 0 : -1;
    }
  }

  #drawAll() {
    this.#width = this.element.clientWidth;
    const lanes = this.#width - LABELS_WIDTH;
    const rows = new RowLayout(this.#song, lanes, neededQuarter(this.#song));
    this.#song.tracks.forEach((track, i) => this.#tracks[i].show(track, rows, lanes));
    this.choose(this.#chosen);
    this.element.dispatchEvent(new Event("redrawn"));
  }

  #widthChanged() {
    if (this.element.clientWidth === this.#width || this.#tracks.length === 0) {
      return;
    }
    this.#keepingFocus(() => this.#drawAll());
  }

  // A note that had the focus may be gone, or be another element.
  #keepingFocus(draw) {
    const hadFocus = this.view(this.#chosen)?.element === document.activeElement;
    draw();
    if (hadFocus && this.view(this.#chosen)?.element !== document.activeElement) {
      this.focus();
    }
  }
}

/** The track and the number of the note that an element belongs to. */
export function refOf(target) {
  const { track, note } = target.closest?.("[data-note]")?.dataset ?? {};
  return note === undefined ? undefined : { track: Number(track), note: Number(note) };
}
