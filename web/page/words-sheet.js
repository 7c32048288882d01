// SPDX-License-Identifier: GPL-3.0-or-later
import { Mistake } from "./core.js";
import { keptText } from "./kept-text.js";
import { say } from "./language.js";
import { LineRows } from "./line-rows.js";
import { lineCounts, linesTotals } from "./reports.js";
import { lineAt, limitBeyond, linesOf, rangeOf } from "./text-lines.js";

const SHORT = 50; // milliseconds, for an answer
const FRAME = 20;
const LONGEST_WAIT = 500;
const PAUSE = 1000; // without a key, after which the answer is read out
const MOST_TYPED_LINES = 200; // Chromium takes 0.1 seconds for them, and eight for 2,000

/** The sheet beside the melody, with a text that is laid under it and a row for each of its lines. */
export class WordsSheet {
  #element;
  #button;
  #core;
  #roll;
  #editing;
  #message;
  #field;
  #rows;
  #lines = [];
  #mistake; // a sentence
  #asked = {}; // for what there was an answer, or a limit
  #took = 0; // milliseconds, to get and to show the last answer
  #answeredAt = 0;
  #timer;
  #pause;

  /** The `button` that opens the sheet gets the focus when it closes. */
  constructor(element, button, { core, roll, editing, message }) {
    this.#element = element;
    this.#button = button;
    this.#core = core;
    this.#roll = roll;
    this.#editing = editing;
    this.#message = message;
    this.#field = this.#find("#words");
    this.#rows = new LineRows(this.#find("#lines"), (number, before, text) =>
      this.#replaceLine(number, before, text));
    this.#listen();
  }

  open() {
    this.#show();
    const isBesideRoll = getComputedStyle(this.#element).position === "sticky";
    this.#find("h2").scrollIntoView({ block: isBesideRoll ? "nearest" : "start" });
    this.#field.focus();
  }

  /** Leaves the text in the sheet for the next time. */
  close() {
    this.#element.hidden = true;
    this.#keep();
    this.#button.focus();
  }

  /** Opens the sheet if it was open before the page was loaded again, with the text it had. */
  restore() {
    const { text, isOpen } = keptText.load();
    this.#field.value = text;
    if (isOpen) {
      this.#show();
    }
  }

  /** Opens the sheet with a text after the text that is there. */
  take(text) {
    this.open();
    const { value } = this.#field;
    const isEmpty = value.trim() === "";
    const added = isEmpty || value.endsWith("\n") ? text : `\n${text}`;
    this.#put(isEmpty ? 0 : value.length, value.length, added);
    this.#message.show(() => [{ sentence: say("pastedIntoWords") }]);
  }

  /** Lays the text, and closes the sheet then. */
  lay() {
    this.#ask();
    const refusal = this.#refusal();
    if (refusal !== undefined) {
      this.#message.show(() => [{ sentence: refusal() }]);
      return;
    }
    const unsung = this.#lines.flatMap((line) => line.unsung);
    if (this.#editing.lay(this.#track, this.#field.value, unsung)) {
      this.#field.value = "";
      this.close();
    }
  }

  /** The song has changed, or another one was opened. */
  songChanged() {
    this.#asked = {};
    this.#askSoon();
  }

  translate() {
    this.#rows.forget();
    this.#tell();
  }

  get #track() {
    return this.#roll.chosen.track;
  }

  get #lineNumber() {
    return lineAt(this.#field.value, this.#field.selectionStart);
  }

  #find(selector) {
    return this.#element.querySelector(selector);
  }

  #listen() {
    this.#field.addEventListener("input", () => {
      this.#askSoon();
      clearTimeout(this.#pause);
      this.#pause = setTimeout(() => this.#readOut(), PAUSE);
    });
    this.#element.addEventListener("keydown", (event) => this.#pressed(event));
    this.#find("#lines").addEventListener("click", ({ target }) => this.#rowClicked(target));
    document.addEventListener("selectionchange", () => {
      if (document.activeElement === this.#field) {
        this.#markLine();
      }
    });
    // Another track may have been chosen.
    this.#roll.element.addEventListener("focusin", () => this.#askSoon());
    addEventListener("pagehide", () => this.#keep());
  }

  #pressed(event) {
    if (event.isComposing || event.keyCode === 229) {
      return;
    }
    if (event.key === "Escape") {
      this.close();
    } else if (event.key === "Enter" && (event.ctrlKey || event.metaKey)) {
      event.preventDefault();
      this.lay();
    }
  }

  #rowClicked(target) {
    const row = target.closest("[data-line]");
    if (row !== null && target.closest("button") === null) {
      const { begin } = rangeOf(this.#field.value, Number(row.dataset.line));
      this.#field.focus();
      this.#field.setSelectionRange(begin, begin);
      this.#markLine();
    }
  }

  #show() {
    this.#element.hidden = false;
    this.#keep();
    this.#ask();
  }

  #keep() {
    keptText.save(this.#field.value, !this.#element.hidden);
  }

  // Answers that take long are as far apart, and the key is seen before.
  #askSoon() {
    clearTimeout(this.#timer);
    if (!this.#element.hidden) {
      const rest = Math.min(this.#took, LONGEST_WAIT) - (performance.now() - this.#answeredAt);
      this.#timer = setTimeout(() => this.#ask(), this.#took < SHORT ? 0 : Math.max(rest, FRAME));
      this.#markBusy(true);
    }
  }

  // Whether there is still to be said what has changed.
  #markBusy(isBusy) {
    this.#find("#lines-box").setAttribute("aria-busy", String(isBusy));
  }

  // What there is to say of the text as it is now.
  #ask() {
    clearTimeout(this.#timer);
    this.#markBusy(false);
    const asked = { text: this.#field.value, track: this.#track };
    if (this.#element.hidden || (asked.text === this.#asked.text && asked.track === this.#asked.track)) {
      return;
    }
    this.#asked = asked;
    this.#keep();
    const start = performance.now();
    this.#answer(asked);
    this.#tell();
    this.#answeredAt = performance.now();
    this.#took = this.#answeredAt - start;
  }

  #answer({ text, track }) {
    this.#lines = [];
    this.#mistake = undefined;
    if (limitBeyond(text) !== undefined || !this.#hasNotes || text.trim() === "") {
      return;
    }
    try {
      const texts = linesOf(text);
      this.#lines = this.#core.lines(track, text)
        .map((line) => ({ ...line, text: texts[line.line - 1] }));
    } catch (mistake) {
      if (!(mistake instanceof Mistake)) {
        throw mistake;
      }
      this.#mistake = mistake.message;
    }
  }

  get #hasNotes() {
    return this.#roll.tracks[this.#track - 1]?.notes.length > 0;
  }

  // Why the text cannot be laid, as a function that says it.
  #refusal() {
    const limit = limitBeyond(this.#field.value);
    const name = limit ?? (this.#hasNotes ? undefined : "noNotesForWords");
    if (name !== undefined) {
      return () => say(name);
    }
    if (this.#mistake !== undefined) {
      const sentence = this.#mistake;
      return () => sentence;
    }
    return this.#lines.length > 0 ? undefined : () => say("noWordsInText");
  }

  #tell() {
    const { value } = this.#field;
    const limit = limitBeyond(value);
    const refusal = this.#refusal();
    const isEmpty = value === "" && this.#hasNotes;
    this.#find("#words-told").textContent = isEmpty ? say("wordsUse")
      : refusal === undefined ? linesTotals(this.#lines) : refusal();
    this.#field.setAttribute("aria-invalid", String(limit !== undefined));
    this.#find("[data-action=lay]").setAttribute("aria-disabled", String(limit !== undefined));
    this.#find("#words-for").textContent = this.#roll.tracks.length > 1
      ? say("wordsFor", { track: this.#roll.tracks[this.#track - 1].name }) : "";
    this.#rows.show(this.#lines, this.#lineNumber);
  }

  #markLine() {
    if (this.#field.value === this.#asked.text) {
      this.#rows.mark(this.#lineNumber);
    }
  }

  // To a screen reader: of the line that was typed into, or why the text cannot be laid.
  #readOut() {
    this.#ask();
    const number = this.#lineNumber;
    const line = this.#lines.find((one) => one.line === number);
    const refusal = this.#field.value === "" ? undefined : this.#refusal();
    this.#find("[aria-live]").textContent = refusal !== undefined ? refusal()
      : line === undefined ? "" : say("lineSaid", { line: number, counts: lineCounts(line) });
  }

  // Nothing is replaced that has changed since it was told of.
  #replaceLine(number, before, text) {
    if (linesOf(this.#field.value)[number - 1] === before) {
      const { begin, end } = rangeOf(this.#field.value, number);
      this.#put(begin, end, text);
    }
  }

  // As if it was typed, so that the keys of the text area take it back.
  #put(begin, end, text) {
    this.#field.focus();
    this.#field.setSelectionRange(begin, end);
    const isTyped = linesOf(text).length <= MOST_TYPED_LINES &&
      document.execCommand("insertText", false, text);
    if (!isTyped) {
      this.#field.setRangeText(text, begin, end, "end");
      this.#field.dispatchEvent(new Event("input"));
    }
  }
}
