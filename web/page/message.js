// SPDX-License-Identifier: GPL-3.0-or-later

/** The line under the roll that says what came of the last thing that was done. */
export class Message {
  #element;
  #paragraphs = () => [];

  constructor(element) {
    this.#element = element;
  }

  /**
   * Shows paragraphs: each a sentence, and the actions that it offers. They are given by a function,
   * so that they can be said again in the other language.
   */
  show(paragraphs) {
    this.#paragraphs = paragraphs;
    this.translate();
  }

  translate() {
    this.#element.replaceChildren(...this.#paragraphs().map(paragraphElement));
  }
}

/** A sentence, and the actions that it offers. */
export function paragraphElement({ sentence, actions = [] }) {
  const paragraph = document.createElement("p");
  paragraph.append(sentence);
  for (const action of actions) {
    paragraph.append(" ", actionButton(action));
  }
  return paragraph;
}

function actionButton({ text, label, run, isGuess = false }) {
  const button = document.createElement("button");
  button.type = "button";
  button.classList.toggle("guess", isGuess);
  button.textContent = text;
  button.setAttribute("aria-label", label ?? text);
  button.addEventListener("click", run);
  return button;
}
