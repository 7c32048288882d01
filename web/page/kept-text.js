// SPDX-License-Identifier: GPL-3.0-or-later

const KEY = "wy-beta-words";
const NOTHING = { text: "", isOpen: false };

/**
 * What stands in the sheet, kept by the browser for this tab, so that it is there again after a
 * reload. Where the browser keeps nothing, there is nothing then.
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
