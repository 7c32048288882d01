// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the extension found, as paragraphs of the message line.
import { findingSentence, leftSentence, say, sayCount } from "./language.js";

// What the line under the roll has room for.
const MOST_FINDINGS = 4;
const MOST_LEFT = 3;
const MOST_WORDS = 8;

const WAYS_TO_FIT = ["hyphens", "otherEntries", "brackets", "guesses"];

/**
 * What came of a typed lyric: what is not sung first, then what each note carries, and then what might
 * have been meant in another way. `type(text)` types another text into the same note.
 */
export function checkReport(check, type) {
  const paragraphOf = (finding) => findingParagraph(finding, check.lyric, type);
  const unsung = check.findings.filter(({ sung }) => !sung);
  const others = check.findings.filter(({ sung }) => sung);
  return [
    ...lostSyllables(check),
    ...firstOf(unsung, MOST_FINDINGS, paragraphOf),
    ...summary(check, unsung.length > 0),
    ...firstOf(others, MOST_FINDINGS, paragraphOf),
  ];
}

/** The words of a line that are not sung. `type(text)` replaces the line. */
export function unsungReport({ text, unsung }, type) {
  return firstOf(unsung, MOST_FINDINGS, (finding) => findingParagraph(finding, text, type));
}

/** How many syllables a line has, how many notes they go to, and how many have no notes. */
export function lineCounts({ syllables, onNotes, notes }) {
  const surplus = syllables - onNotes;
  const told = notes !== null
    ? [sayCount("notes", notes), ...(surplus > 0 ? [sayCount("surplus", surplus)] : [])]
    : surplus > 0 ? [say("noNotesLeft")] : [];
  return [sayCount("syllables", syllables), ...told].join(say("listComma"));
}

/** How many there are of all in the lines of a text. */
export function linesTotals(lines) {
  const sum = (numberOf) => lines.reduce((total, line) => total + numberOf(line), 0);
  const unsung = sum((line) => line.unsung.length);
  return [
    say("linesTotals", {
      lines: sayCount("linesCount", lines.length),
      syllables: sayCount("syllables", sum(({ syllables }) => syllables)),
      notes: sayCount("notes", sum(({ notes }) => notes ?? 0)),
    }),
    ...(unsung > 0 ? [say("sentence", { text: sayCount("notSungCount", unsung) })] : []),
  ].join(say("betweenSentences"));
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

/**
 * What came of laying a text with these words that are not sung as they are. `goTo(note)` goes to the
 * first note of a line; `layByGuesses()` lays the text again, where that was not tried yet.
 */
export function layReport(laid, unsung, goTo, layByGuesses) {
  const tooLong = laid.rows.filter(({ left }) => left.length > 0);
  const canGuess = layByGuesses && unsung.some(({ suggestions = [] }) => suggestions.length > 0);
  return [
    { sentence: layTotals(laid).join(say("betweenSentences")) },
    ...firstOf(tooLong, MOST_LEFT, (row) => leftOfLine(row, goTo)),
    ...(laid.notSung > 0 ? [{
      sentence: notSungWords(laid.notSung, unsung),
      actions: canGuess ? [{ text: say("fitByGuesses"), run: layByGuesses }] : [],
    }] : []),
  ];
}

function layTotals({ lines, syllables, onNotes, held, replaced }) {
  const told = (name, count) => (count > 0 ? [sayCount(name, count)] : []);
  const laid = onNotes === syllables ? "laid" : "laidInPart";
  return [
    say(syllables === 0 ? "laidUnsung" : laid, {
      lines: sayCount("linesCount", lines), syllables: sayCount("syllables", syllables), onNotes,
    }),
    ...told("heldLines", held),
    ...told("replacedWords", replaced),
  ];
}

function leftOfLine({ line, note, left }, goTo) {
  const name = note === null ? "lineWithoutNotes" : "lineTooLong";
  return {
    sentence: say(name, { line, words: firstWords(left, " ") }),
    actions: note === null ? [] : [{ text: say("goToLine", { line }), run: () => goTo(note) }],
  };
}

function notSungWords(count, unsung) {
  const list = firstWords([...new Set(unsung.map(({ word }) => word))], say("listComma"));
  return say("notSungWords", { words: sayCount("notSungCount", count), list });
}

function firstWords(words, between) {
  const told = words.slice(0, MOST_WORDS);
  return [...told, ...(words.length > told.length ? ["…"] : [])].join(between);
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

// Of a word that is too long to be looked into, there is no more to say than that it is not sung.
function findingParagraph(finding, lyric, type) {
  const { reason, word, suggestions = [] } = finding;
  return {
    sentence: reason === undefined ? notSungWords(1, [{ word }]) : findingSentence(finding),
    actions: suggestions.map((suggestion) => ({
      text: suggestion.text,
      label: say(suggestion.guess ? "typeGuess" : "typeSuggestion", { suggestion: suggestion.text }),
      isGuess: suggestion.guess === true,
      run: () => type(corrected(lyric, finding, suggestion)),
    })),
  };
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
