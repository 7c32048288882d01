// SPDX-License-Identifier: GPL-3.0-or-later
import { say } from "./language.js";
import { hasSeveralLines } from "./text-lines.js";

const LEAST_WIDTH = 150;

/** The text field that opens over a note. */
export class Typing {
  #roll;
  #commands;
  #takeLines;
  #field = document.createElement("input");
  #hint = document.createElement("span");
  #under = document.createElement("div");
  #buttons = [["confirm", () => this.#enter()], ["goOn", () => this.#goOn(1)],
    ["cancel", () => this.#escape()]].map(([name, act]) => fieldButton(name, act));
  #ref;
  #before;

  /**
   * `commands.type(ref, text)` gets what was typed, `commands.keep(ref)` hears that nothing was; each
   * says whether the field may close. `takeLines(text)` gets several lines that are pasted, which one
   * note has no use for.
   */
  constructor(roll, commands, takeLines) {
    this.#roll = roll;
    this.#commands = commands;
    this.#takeLines = takeLines;
    this.#field.id = "lyric";
    this.#field.autocomplete = "off";
    this.#field.autocapitalize = "off";
    this.#field.spellcheck = false;
    this.#field.enterKeyHint = "done";
    this.#field.setAttribute("aria-describedby", "lyric-hint");
    this.#hint.id = "lyric-hint";
    this.#under.id = "under-lyric";
    this.#under.append(this.#hint, ...this.#buttons);
    // The field keeps the focus, and with it a telephone its keyboard.
    this.#under.addEventListener("pointerdown", (event) => event.preventDefault());
    this.#under.addEventListener("mousedown", (event) => event.preventDefault());
    this.#field.addEventListener("keydown", (event) => this.#keyPressed(event));
    this.#field.addEventListener("paste", (event) => this.#pasted(event));
    this.#field.addEventListener("blur", ({ relatedTarget }) => this.#left(relatedTarget));
    roll.element.addEventListener("redrawn", () => this.#putOverNote());
  }

  /** Opens the field over a note, with the text that is there, or empty for a new one. */
  open(ref, { isEmpty = false } = {}) {
    const note = this.#roll.note(ref);
    if (note === undefined) {
      return;
    }
    this.close();
    this.#ref = ref;
    this.#roll.choose(ref);
    // A further syllable was not typed, and can be taken away like what was.
    this.#before = note.typed || note.lyric;
    this.#field.value = isEmpty ? "" : this.#before;
    this.#field.setAttribute("aria-label", say("lyricField", { place: this.#roll.placeOf(ref) }));
    this.#hint.textContent = say("lyricHint");
    this.#buttons.forEach((button) => (button.textContent = say(button.name)));
    this.#roll.element.append(this.#field, this.#under);
    this.#putOverNote();
    this.#field.focus();
    this.#field.select();
    this.#under.scrollIntoView({ block: "nearest" });
    this.#field.scrollIntoView({ block: "nearest" });
  }

  /** Whether something stands in the field that was not typed into its note yet. */
  get isUnfinished() {
    return this.#ref !== undefined && this.#field.value !== this.#before;
  }

  /** Leaves the field without typing. */
  close() {
    this.#ref = undefined;
    this.#field.remove();
    this.#under.remove();
  }

  /** Types what stands in the field and leaves it, if one is open. */
  finish() {
    if (this.#ref !== undefined) {
      this.#commit();
      this.close();
    }
  }

  // Keys that end the composition of an input method are not for the field.
  #keyPressed(event) {
    const isComposing = event.isComposing || event.keyCode === 229;
    if (isComposing || event.ctrlKey || event.altKey || event.metaKey) {
      return;
    }
    const act = { Enter: () => this.#enter(), Escape: () => this.#escape(), Tab: () => this.#tab(event) };
    if (act[event.key]) {
      event.stopPropagation();
      act[event.key]();
      if (event.key !== "Tab") {
        event.preventDefault();
      }
    }
  }

  // What takes the lines takes the focus too, by which the field is left.
  #pasted(event) {
    const text = event.clipboardData?.getData("text/plain") ?? "";
    if (hasSeveralLines(text)) {
      event.preventDefault();
      this.#takeLines(text);
    }
  }

  #enter() {
    const ref = this.#ref;
    if (this.#commit()) {
      this.close();
      this.#roll.focus(ref);
    }
  }

  #escape() {
    const ref = this.#ref;
    this.close();
    this.#roll.focus(ref);
  }

  // Beyond the last note, the Tab key goes on to what follows the roll.
  #tab(event) {
    if (this.#goOn(event.shiftKey ? -1 : 1)) {
      event.preventDefault();
    }
  }

  // Types the lyric and opens the field over the next note. Says whether the field stays open.
  #goOn(by) {
    const { track, note } = this.#ref;
    if (!this.#commit()) {
      return true;
    }
    const next = { track, note: note + by };
    this.close();
    if (this.#roll.note(next) === undefined) {
      this.#roll.focus({ track, note });
      return false;
    }
    this.open(next);
    return true;
  }

  // A field that loses the focus to another window, or to its own buttons, stays open.
  #left(target) {
    if (document.activeElement !== this.#field && !this.#under.contains(target)) {
      this.finish();
    }
  }

  #commit() {
    const { value } = this.#field;
    return value === this.#before ? this.#commands.keep(this.#ref)
      : this.#commands.type(this.#ref, value);
  }

  #putOverNote() {
    if (this.#ref === undefined) {
      return;
    }
    const roll = this.#roll.element.getBoundingClientRect();
    const note = this.#roll.view(this.#ref).element.getBoundingClientRect();
    const width = Math.min(Math.max(note.width, LEAST_WIDTH), roll.width);
    const left = Math.min(note.left - roll.left, roll.width - width);
    this.#field.style.width = `${width}px`;
    this.#field.style.left = `${left}px`;
    this.#field.style.top = `${note.top - roll.top - 6}px`;
    this.#under.style.top = `${note.bottom - roll.top + 8}px`;
    this.#under.style.left = `${Math.max(Math.min(left, roll.width - this.#under.offsetWidth), 0)}px`;
  }
}

// The keys do the same, so that Tab can go on to the next note.
function fieldButton(name, act) {
  const button = document.createElement("button");
  button.type = "button";
  button.name = name;
  button.tabIndex = -1;
  button.addEventListener("click", act);
  return button;
}
