// SPDX-License-Identifier: GPL-3.0-or-later

const A4 = { pitch: 69, hertz: 440 };
const ATTACK = 0.02;
const RELEASE = 0.06;
const LOUD = 0.18;
const SOFT = 0.05;

/** Plain tones, one for each note. */
export class Tones {
  #context;
  #output;

  /** To be called when a person asked for sound: browsers allow none before. */
  start() {
    this.#context ??= new AudioContext();
    this.#context.resume();
    this.#output = this.#context.createGain();
    this.#output.connect(this.#context.destination);
  }

  /** A note that nothing is sung on is soft. */
  sound({ pitch, isSung }, delay, seconds) {
    const from = this.#context.currentTime + delay;
    const until = from + seconds;
    const envelope = this.#context.createGain();
    envelope.gain.setValueAtTime(0, from);
    envelope.gain.linearRampToValueAtTime(isSung ? LOUD : SOFT, from + ATTACK);
    envelope.gain.setTargetAtTime(0, Math.max(until - RELEASE, from + ATTACK), RELEASE / 3);
    envelope.connect(this.#output);
    const tone = this.#context.createOscillator();
    tone.type = "triangle";
    tone.frequency.value = A4.hertz * 2 ** ((pitch - A4.pitch) / 12);
    tone.connect(envelope);
    tone.start(from);
    tone.stop(until + RELEASE);
  }

  stop() {
    this.#output?.disconnect();
    this.#context?.suspend();
  }
}
