// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the extension found, as paragraphs of the message line.
import { findingSentence, leftSentence, say, sayCount } from "./language.js";

// What the line under the roll has room for.
const MOST_FINDINGS = 4;
const MOST_LEFT = 3;

const WAYS_TO_FIT = ["hyphens", "otherEntries", "brackets", "guesses"];

/**
 * What came of a typed lyric: what is not sung first, then what each note carries, and then what might
 * have been meant in another way. `type(text)` types another text into the same note.
 */
export function checkReport(check, type) {
  const paragraphOf = (finding) => ({
    sentence: findingSentence(finding),
    actions: finding.suggestions.map((suggestion) => ({
      text: suggestion.text,
      label: say(suggestion.guess ? "typeGuess" : "typeSuggestion", { suggestion: suggestion.text }),
      isGuess: suggestion.guess === true,
      run: () => type(corrected(check.lyric, finding, suggestion)),
    })),
  });
  const unsung = check.findings.filter(({ sung }) => !sung);
  const others = check.findings.filter(({ sung }) => sung);
  return [
    ...lostSyllables(check),
    ...firstOf(unsung, MOST_FINDINGS, paragraphOf),
    ...summary(check, unsung.length > 0),
    ...firstOf(others, MOST_FINDINGS, paragraphOf),
  ];
}

/**
 * What came of fitting the song in these `ways`. `goTo(ref)` goes to a word; `fitBy(ways)` fits the
 * rest, as far as that was not tried yet.
 */
export function fitReport(fit, ways, goTo, fitBy) {
  const isLeft = (test) => fit.left.some(({ outcome }) => test(outcome));
  const left = firstOf(fit.left, MOST_LEFT, (word) => ({
    sentence: leftSentence(word),
    actions: [{ text: word.word, label: say("goToWord", word), run: () => goTo(word) }],
  }));
  const totals = {
    sentence: fitTotals(fit).join(say("betweenSentences")),
    actions: [
      ...(isLeft((outcome) => outcome !== "unknown") && !ways.brackets
        ? [{ text: say("fitByBrackets"), run: () => fitBy({ ...ways, brackets: true }) }] : []),
      ...(isLeft((outcome) => outcome === "unknown") && !ways.guesses
        ? [{ text: say("fitByGuesses"), run: () => fitBy({ ...ways, guesses: true }) }] : []),
    ],
  };
  return [totals, ...left];
}

function fitTotals(fit) {
  if (fit.words === 0) {
    return [say("noWords")];
  }
  if (fit.asTheyAre === fit.words) {
    return [sayCount("allInPlace", fit.words)];
  }
  const ways = WAYS_TO_FIT.filter((way) => fit[way] > 0).map((way) => sayCount(way, fit[way]));
  const told = (name) => (fit[name] > 0 ? [sayCount(name, fit[name])] : []);
  return [
    ...(ways.length > 0 ? [say("fitted", { list: ways.join(say("listComma")) })] : []),
    ...told("asTheyAre"),
    ...told("notFitted"),
  ];
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
function corrected(lyric, { column, word }, { text, replaces }) {
  if (replaces === "lyric") {
    return text;
  }
  const characters = [...lyric];
  characters.splice(column - 1, [...word].length, text);
  return characters.join("");
}

function summary({ lyric, syllables, lost }, isInPart) {
  if (lyric === "") {
    return [{ sentence: say("emptied") }];
  }
  const carried = syllables.slice(0, syllables.length - lost);
  if (carried.length > 0) {
    const name = isInPart || lost > 0 ? "sungInPart" : "sung";
    return [{ sentence: say(name, { lyric, syllables: listed(carried) }) }];
  }
  return isInPart ? [] : [{ sentence: say("notSung", { lyric }) }];
}

function lostSyllables({ syllables, lost }) {
  const left = listed(syllables.slice(syllables.length - lost));
  return lost > 0 ? [{ sentence: say("lost", { syllables: left }) }] : [];
}

function listed(syllables) {
  return syllables.map((syllable) => syllable.trim()).join(" · ");
}
