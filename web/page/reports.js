// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the extension found, as paragraphs of the message line.
import { findingSentence, leftSentence, say } from "./language.js";

const MOST_LEFT = 3;

/** What came of a typed lyric. `type(text)` types another text into the same note. */
export function checkReport(check, type) {
  const findings = check.findings.map((finding) => ({
    sentence: findingSentence(finding),
    actions: finding.mends.map((mend) => ({
      text: mend,
      label: say("typeMend", { mend }),
      run: () => type(mended(check.lyric, finding, mend)),
    })),
  }));
  return [...(findings.length > 0 ? [] : [summary(check)]), ...findings, ...lostSyllables(check)];
}

/** What came of fitting the song. `goTo(ref)` goes to a word, `fitByBrackets()` fits the rest. */
export function fitReport(fit, goTo, fitByBrackets) {
  const left = fit.left.slice(0, MOST_LEFT).map((word) => ({
    sentence: leftSentence(word),
    actions: [{ text: say("goToWord", word), run: () => goTo(word) }],
  }));
  const more = fit.left.length - left.length;
  const totals = {
    sentence: say("fitted", fit),
    actions: fit.notFitted > 0 ? [{ text: say("fitByBrackets"), run: fitByBrackets }] : [],
  };
  return [totals, ...left, ...(more > 0 ? [{ sentence: say("moreLeft", { count: more }) }] : [])];
}

// Columns count characters, as the lyric's iterator does.
function mended(lyric, { column, word }, mend) {
  const characters = [...lyric];
  characters.splice(column - 1, [...word].length, mend);
  return characters.join("");
}

function summary({ lyric, syllables }) {
  if (lyric === "") {
    return { sentence: say("emptied") };
  }
  const name = syllables.length > 0 ? "sung" : "notSung";
  return { sentence: say(name, { lyric, syllables: syllables.join(" · ") }) };
}

function lostSyllables({ lost = 0 }) {
  return lost > 0 ? [{ sentence: say("lost", { count: lost }) }] : [];
}
