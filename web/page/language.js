// SPDX-License-Identifier: GPL-3.0-or-later
import en from "./texts/en.js";
import ja from "./texts/ja.js";

let texts = navigator.language.startsWith("ja") ? ja : en;

/** The language that the page speaks, as `lang` names it. */
export function language() {
  return texts.language;
}

export function switchLanguage() {
  texts = texts === en ? ja : en;
}

/** A text of the page with its values filled in. */
export function say(name, values = {}) {
  return fillIn(texts[name], values);
}

/** A text about so many things, in the form that the number asks for. */
export function sayCount(name, count) {
  const forms = texts[name];
  const form = new Intl.PluralRules(texts.language).select(count);
  return fillIn(forms[form] ?? forms.other, { count });
}

export function helpRows() {
  return texts.helpRows;
}

/** What was found in a lyric, as a sentence. */
export function findingSentence(finding) {
  return fillIn(texts.findings[finding.reason] ?? finding.sentence, finding);
}

/** Why a word was not fitted, as a sentence. */
export function leftSentence(word) {
  return fillIn(texts.leftBy[word.outcome] ?? `${word.reason}.`, word);
}

function fillIn(text, values) {
  return text.replace(/\{(\w+)\}/g, (whole, name) => String(values[name] ?? whole));
}
