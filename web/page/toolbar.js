// SPDX-License-Identifier: GPL-3.0-or-later
import { helpRows, language, say } from "./language.js";

/** The buttons, and all texts of the page that do not come from the song. */
export class Toolbar {
  #root;

  /** `actions` has a function for each button, by the button's `data-action`. */
  constructor(root, actions) {
    this.#root = root;
    for (const button of root.querySelectorAll("[data-action]")) {
      button.addEventListener("click", () => {
        if (button.getAttribute("aria-disabled") !== "true") {
          actions[button.dataset.action]();
        }
      });
    }
    this.#makeSaveMenu();
  }

  /** A button without use keeps the focus that it has, so it is only marked. */
  enable(action, isEnabled) {
    this.#button(action).setAttribute("aria-disabled", String(!isEnabled));
  }

  translate() {
    this.#root.documentElement.lang = language();
    this.#root.title = say("pageTitle");
    this.#each("say", (element, name) =>
      (element.textContent = say((isTouched() && element.dataset.touch) || name)));
    this.#each("hint", (element, name) => (element.title = say(name)));
    this.#each("label", (element, name) => element.setAttribute("aria-label", say(name)));
    this.#button("switchLanguage").lang = language() === "en" ? "ja" : "en";
    this.#root.querySelector("#help").replaceChildren(...helpRows().flatMap(helpEntry));
  }

  #button(action) {
    return this.#root.querySelector(`[data-action="${action}"]`);
  }

  #each(mark, translate) {
    this.#root.querySelectorAll(`[data-${mark}]`)
      .forEach((element) => translate(element, element.dataset[mark]));
  }

  #makeSaveMenu() {
    const button = this.#root.querySelector("#save");
    const menu = this.#root.querySelector("#save-menu");
    const show = (isOpen) => {
      menu.hidden = !isOpen;
      button.setAttribute("aria-expanded", String(isOpen));
    };
    button.addEventListener("click", () => show(menu.hidden));
    menu.addEventListener("click", () => {
      show(false);
      button.focus();
    });
    menu.parentElement.addEventListener("keydown", ({ key }) => {
      if (key === "Escape" && !menu.hidden) {
        show(false);
        button.focus();
      }
    });
    menu.parentElement.addEventListener("focusout", ({ currentTarget, relatedTarget }) => {
      if (relatedTarget !== null && !currentTarget.contains(relatedTarget)) {
        show(false);
      }
    });
    this.#root.addEventListener("pointerdown", ({ target }) => {
      if (!menu.parentElement.contains(target)) {
        show(false);
      }
    });
  }
}

// Whether fingers are what the page is used by.
function isTouched() {
  return matchMedia("(pointer: coarse)").matches;
}

function helpEntry([keys, meaning]) {
  const term = document.createElement("dt");
  const text = document.createElement("dd");
  term.textContent = keys;
  text.textContent = meaning;
  return [term, text];
}
