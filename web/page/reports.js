// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the extension found, as paragraphs of the message line.
import { findingSentence, leftSentence, say } from "./language.js";

// What the line under the roll has room for.
const MOST_FINDINGS = 4;
const MOST_LEFT = 3;

/** What came of a typed lyric. `type(text)` types another text into the same note. */
export function checkReport(check, type) {
  const findings = firstOf(check.findings, MOST_FINDINGS, (finding) => ({
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
  const left = firstOf(fit.left, MOST_LEFT, (word) => ({
    sentence: leftSentence(word),
    actions: [{ text: word.word, label: say("goToWord", word), run: () => goTo(word) }],
  }));
  const totals = {
    sentence: say("fitted", fit),
    actions: fit.notFitted > 0 ? [{ text: say("fitByBrackets"), run: fitByBrackets }] : [],
  };
  return [totals, ...left];
}

/** What was noticed when a song was opened. */
export function warningsReport(warnings) {
  return firstOf(warnings, MOST_FINDINGS, (sentence) => ({ sentence }));
}

function firstOf(items, most, paragraphOf) {
  const more = items.length - most;
  const told = items.slice(0, most).map(paragraphOf);
  return more > 0 ? [...told, { sentence: say("more", { count: more }) }] : told;
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
