// SPDX-License-Identifier: GPL-3.0-or-later

/** A mistake in what was asked of the extension; its message is a sentence for people. */
export class Mistake extends Error {}

/**
 * The song in the simulated editor. Every call answers with what its JSON says, or throws a
 * Mistake, and then nothing has changed.
 */
export class Core {
  #page;

  constructor(module) {
    this.#page = new module.SongPage();
  }

  openExample(language) {
    return read(this.#page.openExample(language));
  }

  open(bytes, fileName) {
    return read(this.#page.open(bytes, fileName));
  }

  type({ track, note }, text) {
    return read(this.#page.type(track, note, text));
  }

  add(track, { start, length, pitch }) {
    return read(this.#page.add(track, start, length, pitch));
  }

  move({ track, note }, { start, length, pitch }) {
    return read(this.#page.move(track, note, start, length, pitch));
  }

  remove({ track, note }) {
    return read(this.#page.remove(track, note));
  }

  undo() {
    return read(this.#page.undo());
  }

  redo() {
    return read(this.#page.redo());
  }

  check({ track, note }) {
    return read(this.#page.check(track, note));
  }

  fit({ brackets = false, guesses = false } = {}) {
    return read(this.#page.fit(brackets, guesses));
  }

  lines(track, text) {
    return read(this.#page.lines(track, text)).lines;
  }

  lay(track, text, { guesses = false } = {}) {
    return read(this.#page.lay(track, text, guesses));
  }

  save(kind) {
    return read(this.#page.save(kind));
  }
}

function read(json) {
  const answer = JSON.parse(json);
  if (answer.error !== undefined) {
    throw new Mistake(answer.error);
  }
  return answer;
}
