// SPDX-License-Identifier: GPL-3.0-or-later

/** Opens songs by a file input, and those that are dropped on the page. */
export class Files {
  #open;
  #refuse;

  /** `open(bytes, name)` gets what a file holds; `refuse(name)` hears of one that can't be read. */
  constructor(input, open, refuse) {
    this.#open = open;
    this.#refuse = refuse;
    input.addEventListener("change", async () => {
      await this.#read(input.files[0]);
      input.value = ""; // so that the same file can be opened again
    });
    this.#takeDrops(document.body);
  }

  async #read(file) {
    if (file === undefined) {
      return;
    }
    let bytes;
    try {
      bytes = new Uint8Array(await file.arrayBuffer());
    } catch {
      this.#refuse(file.name);
      return;
    }
    this.#open(bytes, file.name);
  }

  #takeDrops(body) {
    const mark = (isOver) => body.classList.toggle("takes-drop", isOver);
    body.addEventListener("dragover", (event) => {
      event.preventDefault();
      mark(true);
    });
    body.addEventListener("dragleave", ({ relatedTarget }) => mark(relatedTarget !== null));
    body.addEventListener("drop", (event) => {
      event.preventDefault();
      mark(false);
      this.#read(event.dataTransfer.files[0]);
    });
  }
}

/** Hands a file to the browser to be saved. */
export function download({ name, mime, text }) {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([text], { type: mime }));
  link.download = name;
  link.click();
  // Some browsers begin to read only after the click.
  setTimeout(() => URL.revokeObjectURL(link.href), 10_000);
}
