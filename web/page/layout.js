// SPDX-License-Identifier: GPL-3.0-or-later

// Times are sums of fractions of a quarter note: what is nearly equal is meant to be equal.
const NEARLY = 1e-6;
const WIDEST_QUARTER = 150;
const TIGHT = 0.65; // of the width that texts need: they get smaller, and can be read

export function measureLength({ beats, beatType }) {
  return (4 * beats) / beatType;
}

export function endOf(note) {
  return note.start + note.length;
}

/** How a song is broken into rows of equal length; all tracks share it. */
export class RowLayout {
  /** `neededWidth` is the width that a quarter note needs for its texts, in pixels. */
  constructor(song, width, neededWidth) {
    this.measure = measureLength(song.time);
    this.origin = song.pickup > 0 ? song.pickup - this.measure : 0;
    this.beat = 4 / song.time.beatType;
    this.rowLength = rowLengthFor(song, this.measure, width, neededWidth);
  }

  rowOf(time) {
    return Math.floor((time - this.origin) / this.rowLength + NEARLY);
  }

  startOf(row) {
    return this.origin + row * this.rowLength;
  }

  /** The last row in which something that ends then is seen. */
  lastRowOf(end) {
    return Math.ceil((end - this.origin) / this.rowLength - NEARLY) - 1;
  }

  /** Where a time stands in a row: 0 at its left end, 1 at its right end. */
  fraction(time, row) {
    return (time - this.startOf(row)) / this.rowLength;
  }

  /** The number of the bar that sounds at a time; an incomplete first bar is number 0. */
  barAt(time) {
    return Math.floor((time - this.origin) / this.measure + NEARLY) + (this.origin < 0 ? 0 : 1);
  }

  /** The bars that begin in a row. */
  barsOf(row) {
    const first = Math.ceil((this.startOf(row) - this.origin) / this.measure - NEARLY);
    const end = Math.ceil((this.startOf(row + 1) - this.origin) / this.measure - NEARLY);
    const starts = Array.from({ length: end - first }, (_, i) => first + i);
    return starts.map((bar) => this.origin + bar * this.measure)
      .map((start) => ({ start, number: this.barAt(start) }));
  }

  /** The rows to show for a track: those with notes, a free beat at the end, short gaps between. */
  rowsOf(track) {
    const wanted = new Set([0]);
    for (const note of track.notes) {
      const last = this.lastRowOf(endOf(note));
      for (let row = this.rowOf(note.start); row <= last; ++row) {
        wanted.add(row);
      }
    }
    const lastNote = track.notes.at(-1);
    if (lastNote !== undefined) {
      wanted.add(this.lastRowOf(endOf(lastNote) + this.beat));
    }
    return withShortGaps([...wanted].sort((a, b) => a - b));
  }
}

// Whole bars if one has room, also a tight one, otherwise whole beats of one.
function rowLengthFor(song, measure, width, neededWidth) {
  const tightWidth = TIGHT * neededWidth * measure;
  const bars = Math.max(Math.floor(width / (neededWidth * measure)), width >= tightWidth ? 1 : 0);
  if (bars >= 1) {
    return measure * Math.min(bars, Math.max(barsIn(song, measure), barsThatFill(width, measure)));
  }
  const { beats } = song.time;
  const parts = Array.from({ length: beats }, (_, i) => i + 1).filter((i) => beats % i === 0);
  return measure / (parts.find((i) => width * i >= neededWidth * measure) ?? beats);
}

function barsIn(song, measure) {
  const ends = song.tracks.flatMap((track) => track.notes.slice(-1).map(endOf));
  return Math.ceil(Math.max(0, ...ends) / measure) + 1;
}

function barsThatFill(width, measure) {
  return Math.ceil(width / (WIDEST_QUARTER * measure));
}

function withShortGaps(rows) {
  const longestGap = 2;
  return rows.flatMap((row, i) => {
    const gap = i === 0 ? 0 : row - rows[i - 1] - 1;
    return gap > longestGap ? [row] : [...Array.from({ length: gap }, (_, k) => row - gap + k), row];
  });
}

const STEP = 7;
const TALLEST = 200;
const ROOM_TO_MOVE = 2;
const EMPTY_TRACK = { lowest: 60, highest: 72 };

/** Where the pitches of one track stand in its rows. */
export class PitchLayout {
  static boxHeight = 24;
  static roomAbove = 40; // the bar's number and a lyric
  static roomBelow = 8;
  static lyricHeight = 20;

  constructor(track) {
    const pitches = track.notes.map((note) => note.pitch);
    const { lowest, highest } = pitches.length === 0 ? EMPTY_TRACK : extremesOf(pitches);
    this.lowest = Math.max(lowest - ROOM_TO_MOVE, 0);
    this.highest = Math.min(highest + ROOM_TO_MOVE, 127);
    this.step = Math.min(STEP, TALLEST / (this.highest - this.lowest + 1));
  }

  get height() {
    const { roomAbove, boxHeight, roomBelow } = PitchLayout;
    return roomAbove + (this.highest - this.lowest) * this.step + boxHeight + roomBelow;
  }

  y(pitch) {
    return PitchLayout.roomAbove + (this.highest - pitch) * this.step;
  }

  /** The pitch whose box has its middle next to a height. */
  pitchAt(y) {
    const middle = y - PitchLayout.roomAbove - PitchLayout.boxHeight / 2;
    return Math.min(Math.max(Math.round(this.highest - middle / this.step), 0), 127);
  }

  /** Whether the box of the one note is where the lyric over the other would be. */
  isOverLyric(box, note) {
    const { boxHeight, lyricHeight } = PitchLayout;
    const above = this.y(note.pitch) - this.y(box.pitch);
    return above > 0 && above < boxHeight + lyricHeight;
  }

  isSameAs(other) {
    return this.lowest === other.lowest && this.highest === other.highest;
  }
}

// Songs may have more notes than a call takes arguments.
function extremesOf(pitches) {
  const lowest = pitches.reduce((a, b) => Math.min(a, b));
  const highest = pitches.reduce((a, b) => Math.max(a, b));
  return { lowest, highest };
}
