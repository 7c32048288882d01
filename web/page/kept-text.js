// SPDX-License-Identifier: GPL-3.0-or-later

const KEY = "wy-beta-words";
const NOTHING = { text: "", isOpen: false };

/**
 * The text of the sheet, which the browser keeps for this tab, so that a reload does not lose it. It
 * is empty after a reload where the browser keeps nothing.
 */
export const keptText = {
  load() {
    try {
      return { ...NOTHING, ...JSON.parse(sessionStorage.getItem(KEY)) };
    } catch {
      return NOTHING;
    }
  },

  save(text, isOpen) {
    try {
      if (text === "" && !isOpen) {
        sessionStorage.removeItem(KEY);
      } else {
        sessionStorage.setItem(KEY, JSON.stringify({ text, isOpen }));
      }
    } catch {
      // The text stays in the sheet as long as the page does.
    }
  },
};
