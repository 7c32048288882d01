// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts the page together.
import { Core } from "./core.js";
import { Dragging } from "./dragging.js";
import { Editing } from "./editing.js";
import { download, Files } from "./files.js";
import { language, say, switchLanguage } from "./language.js";
import { Message } from "./message.js";
import { Playing } from "./playing.js";
import { Question } from "./question.js";
import { Roll, refOf } from "./roll.js";
import { RollKeys } from "./roll-keys.js";
import { Toolbar } from "./toolbar.js";
import { Typing } from "./typing.js";
import { Unsaved } from "./unsaved.js";
import { WordsSheet } from "./words-sheet.js";

const NEW_NOTE_GRID = 0.5; // in quarter notes

const find = (selector) => document.querySelector(selector);
const message = new Message(find("[role=status]"));

/** What can be done on the page, once the extension is there. */
class Page {
  #core;
  #roll = new Roll(find("#roll"));
  #title = "";
  #unsaved = new Unsaved();
  #question = new Question(find("#question"));

  constructor(core) {
    this.#core = core;
    this.editing = new Editing(core, this.#roll, message,
      (song, isOpened) => this.#songChanged(song, isOpened));
    this.sheet = new WordsSheet(find("#sheet"), find("[data-action=words]"),
      { core, roll: this.#roll, editing: this.editing, message });
    this.typing = new Typing(this.#roll, this.editing, (text) => this.sheet.take(text));
    this.playing = new Playing(this.#roll, (isPlaying) => this.#playingChanged(isPlaying));
    this.toolbar = new Toolbar(document, this.#actions());
    const dragging = new Dragging(this.#roll, (ref, note) => this.editing.move(ref, note));
    new RollKeys(this.#roll, this.editing, this.typing, this.playing);
    new Files(find("#open-file"), (bytes, name) => this.#open(bytes, name),
      (name) => message.show(() => [{ sentence: say("fileUnreadable", { name }) }]));
    this.#listenToClicks(dragging);
    this.#listenToHistoryKeys();
    this.#keepUnsaved();
    this.#translate();
    this.editing.openExample(language());
    this.sheet.restore();
  }

  #actions() {
    const chosen = () => this.#roll.chosen;
    return {
      open: () => find("#open-file").click(),
      saveScore: () => this.#save("musicxml"),
      saveProject: () => this.#save("json"),
      savePicture: () => this.#save("svg"),
      undo: () => this.editing.undo(),
      redo: () => this.editing.redo(),
      play: () => this.playing.play(),
      stop: () => this.playing.stop(),
      fit: () => this.editing.fit(),
      words: () => this.sheet.open(),
      closeWords: () => this.sheet.close(),
      lay: () => this.sheet.lay(),
      addNote: () => this.editing.addAfter(chosen()),
      deleteNote: () => this.editing.remove(chosen()),
      closeIntro: () => {
        find("#intro").remove();
        this.#roll.focus();
      },
      switchLanguage: () => {
        switchLanguage();
        this.#translate();
      },
    };
  }

  async #open(bytes, name) {
    if (this.#hasUnsaved && !(await this.#mayGo())) {
      return;
    }
    this.editing.open(bytes, name);
  }

  async #mayGo() {
    const answer = await this.#question.ask();
    if (answer === "save") {
      this.typing.finish();
      this.#save("json");
    }
    return answer !== "cancel";
  }

  get #hasUnsaved() {
    return this.#unsaved.isThere || this.typing.isUnfinished;
  }

  // A picture keeps no song.
  #save(kind) {
    const file = this.#core.save(kind);
    download(file);
    if (kind !== "svg") {
      this.#unsaved.saved();
      this.#showTitle();
    }
    message.show(() => [{ sentence: say("saved", file) }]);
  }

  // The browser asks in its own words before the page goes.
  #keepUnsaved() {
    addEventListener("beforeunload", (event) => {
      if (this.#hasUnsaved) {
        event.preventDefault();
        event.returnValue = "";
      }
    });
  }

  #songChanged(song, isOpened) {
    this.#unsaved[isOpened ? "opened" : "edited"](song);
    this.playing.stop();
    this.typing.close();
    this.sheet.songChanged();
    this.toolbar.enable("undo", song.canUndo);
    this.toolbar.enable("redo", song.canRedo);
    this.#title = song.name;
    this.#showTitle();
  }

  #showTitle() {
    find("#title").textContent = this.#title || say("untitled");
    find("#unsaved").hidden = !this.#unsaved.isThere;
  }

  // What an edit says that ends the playing comes after this.
  #playingChanged(isPlaying) {
    this.toolbar.enable("stop", isPlaying);
    message.show(() => [{ sentence: say(isPlaying ? "playing" : "stopped") }]);
  }

  #translate() {
    this.toolbar.translate();
    this.#roll.translate();
    this.#showTitle();
    this.sheet.translate();
    message.translate();
  }

  #listenToClicks(dragging) {
    const roll = this.#roll.element;
    roll.addEventListener("click", ({ target }) => {
      const ref = refOf(target);
      if (ref !== undefined && !dragging.hasDragged) {
        this.typing.open(ref);
      }
    });
    roll.addEventListener("dblclick", ({ target, clientX, clientY }) => {
      const place = this.#roll.at(clientX, clientY);
      if (place !== undefined && refOf(target) === undefined) {
        this.#addAt(place);
      }
    });
  }

  // As long as a quarter note, or as there is room.
  #addAt({ track, time, pitch }) {
    const start = Math.max(Math.floor(time / NEW_NOTE_GRID) * NEW_NOTE_GRID, 0);
    const next = this.#roll.tracks[track - 1].notes.find((note) => note.start > start);
    const length = Math.min(1, (next?.start ?? Infinity) - start);
    this.editing.add(track, { start, length, pitch });
  }

  // In a text field these keys are the field's own.
  #listenToHistoryKeys() {
    document.addEventListener("keydown", (event) => {
      const key = event.key.toLowerCase();
      if (!(event.ctrlKey || event.metaKey) || event.altKey || event.target.matches("#lyric, #words")) {
        return;
      }
      if (key === "y" || (key === "z" && event.shiftKey)) {
        event.preventDefault();
        this.editing.redo();
      } else if (key === "z") {
        event.preventDefault();
        this.editing.undo();
      }
    });
  }
}

async function start() {
  message.show(() => [{ sentence: say("loading") }]);
  try {
    new Page(new Core(await globalThis.createWyBeta()));
  } catch (error) {
    message.show(() => [{ sentence: say("cannotLoad", { error: error.message }) }]);
    throw error;
  }
}

start();
