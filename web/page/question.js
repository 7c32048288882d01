// SPDX-License-Identifier: GPL-3.0-or-later

/** The question that is asked before a song with unsaved changes gives way to another one. */
export class Question {
  #dialog;
  #answer;

  constructor(dialog) {
    this.#dialog = dialog;
    for (const button of dialog.querySelectorAll("[data-answer]")) {
      button.addEventListener("click", () => {
        this.#answer = button.dataset.answer;
        dialog.close();
      });
    }
  }

  /** Resolves to the answer of the button that was pressed, or to "cancel" by Escape. */
  ask() {
    this.#answer = "cancel";
    return new Promise((resolve) => {
      this.#dialog.addEventListener("close", () => resolve(this.#answer), { once: true });
      if (!this.#dialog.open) {
        this.#dialog.showModal();
      }
    });
  }
}
