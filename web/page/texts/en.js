// SPDX-License-Identifier: GPL-3.0-or-later

/** What the page says in English. `{name}` stands for a value. */
export default {
  language: "en",
  otherLanguage: "日本語",
  pageTitle: "WY Beta – try it",
  intro:
    "Click a note, type a lyric, press Enter: the notes after it fill at once. A hyphen holds a " +
    "syllable over one more note, as in Glo--ria. Fit finds the hyphens for all words of a score.",

  open: "Open",
  save: "Save",
  undo: "Undo",
  redo: "Redo",
  play: "Play",
  stop: "Stop",
  fit: "Fit",
  addNote: "Add note",
  deleteNote: "Delete note",
  openHint: "A score or a project: .musicxml, .xml, .mxl, .json",
  fitHint: "Find for each word the text that brings its syllables onto its notes",
  saveScore: "Score (.musicxml)",
  saveProject: "Project (.json)",
  savePicture: "Picture (.svg)",
  tools: "Tools",
  song: "Song",
  untitled: "Untitled",
  unsaved: "unsaved",
  unsavedQuestion: "This song has changes that are not saved. Open another song all the same?",
  saveFirst: "Save the project first",
  discard: "Open without saving",
  cancel: "Cancel",
  dropHere: "Drop the song here",

  legend: "What the notes mean",
  kindWord: "a word begins",
  kindFurther: "a further syllable",
  kindUnsung: "a lyric that is not sung",
  kindEmpty: "no lyric",

  trackNumber: "Track {number}",
  emptyBars: "bars {first} to {last} are empty",
  noteWord: "{word} {phonemes}, {place}",
  noteFurther: "{phonemes}, further syllable, {place}",
  noteUnsung: "{word}, not sung, {place}",
  noteEmpty: "no lyric, {place}",
  notePlace: "{pitch}, bar {bar}",
  lyricField: "Lyric, {place}",
  lyricHint: "Enter types it, Tab goes on, Escape leaves it",

  help: "Keys and gestures",
  helpRows: [
    ["Click, Enter, or any letter", "type a lyric into the note"],
    ["Enter / Tab / Escape while typing", "type it / type it and go on to the next note / leave it"],
    ["Arrow keys, Home, End", "go from note to note"],
    ["Double click, Shift+Enter", "add a note: there, or behind the chosen one"],
    ["Drag, Alt+arrow keys", "move the note"],
    ["Drag the right end, Alt+Shift+← →", "shorten or lengthen the note"],
    ["Delete", "delete the note"],
    ["Ctrl+Z, Ctrl+Y", "undo, redo"],
    ["Space", "play from the note, stop"],
  ],

  loading: "Loading …",
  cannotLoad: "WY Beta does not start in this browser: {error}",
  exampleOpened: "This is an example. Choose a note and type, or open a song of your own.",
  opened: "“{title}” is open: notes: {notes}.",
  fileUnreadable: "The file {name} could not be read.",
  undone: "Undone.",
  redone: "Redone.",
  noteAdded: "A note was added: {place}.",
  noteMoved: "The note is now at {place}.",
  noteDeleted: "The note was deleted.",
  noNoteChosen: "Choose a note first.",
  saved: "Saved as {name}.",
  playing: "Playing.",
  stopped: "Stopped.",

  emptied: "The note has no lyric now.",
  sung: "“{lyric}” is sung, note by note: {syllables}",
  sungInPart: "Sung of “{lyric}”, note by note: {syllables}",
  notSung: "“{lyric}” gives nothing to sing.",
  lost: "Not sung, as the notes ran out: {syllables}. Add notes and type it again.",
  // The extension's own sentences are English. On the page, these come behind what is sung.
  findings: {
    "hyphen-holds":
      "The hyphens in “{word}” hold a syllable over more notes. If you did not mean that, take:",
    "zero": "The 0 in “{word}” takes away the sound before it, or makes a rest.",
  },
  typeMend: "Type “{mend}”",

  fitting: "Fitting …",
  fitted:
    "Words: {words}; as they are: {asTheyAre}, with hyphens: {hyphens}, with other entries: " +
    "{otherEntries}, with brackets: {brackets}; not fitted: {notFitted}.",
  leftBy: {},
  goToWord: "Go to “{word}”",
  more: "And {count} more.",
  fitByBrackets: "Fit the rest by phonemes in brackets",
};
