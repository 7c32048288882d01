// SPDX-License-Identifier: GPL-3.0-or-later

/** What the page says in Japanese. `{name}` stands for a value. */
export default {
  language: "ja",
  otherLanguage: "English",
  pageTitle: "WY Beta を試す",
  intro:
    "音符をクリックして歌詞を入力し、Enter を押すと、後に続く音符にもすぐに割り当てられます。英単語は " +
    "Glo--ria のようにハイフン一つで、かなは「ー」一つで、音符一つ分伸びます。「楽譜に合わせる」は、すべての" +
    "単語について音符に合う書き方を探します。",

  open: "開く",
  save: "保存",
  undo: "元に戻す",
  redo: "やり直す",
  play: "再生",
  stop: "停止",
  fit: "楽譜に合わせる",
  addNote: "音符を追加",
  deleteNote: "音符を削除",
  openHint: "楽譜またはプロジェクト: .musicxml、.xml、.mxl、.json",
  fitHint: "単語ごとに、音節が音符に合う書き方を探します",
  saveScore: "楽譜 (.musicxml)",
  saveProject: "プロジェクト (.json)",
  savePicture: "画像 (.svg)",
  tools: "ツール",
  song: "曲",
  untitled: "無題",
  dropHere: "ここに曲をドロップしてください",

  legend: "音符の見分け方",
  kindWord: "単語の始まり",
  kindFurther: "続きの音節",
  kindUnsung: "歌われない歌詞",
  kindEmpty: "歌詞なし",

  trackNumber: "トラック {number}",
  emptyBars: "{first}～{last} 小節は空です",
  noteWord: "{word} {phonemes}、{place}",
  noteFurther: "{phonemes}、続きの音節、{place}",
  noteUnsung: "{word}、歌われません、{place}",
  noteEmpty: "歌詞なし、{place}",
  notePlace: "{pitch}、{bar} 小節目",
  lyricField: "歌詞、{place}",
  lyricHint: "Enter で確定、Tab で次の音符へ、Esc で取り消し",

  help: "キーとマウスの操作",
  helpRows: [
    ["クリック、Enter、文字キー", "音符に歌詞を入力する"],
    ["入力中の Enter / Tab / Esc", "確定する / 確定して次の音符へ進む / 取り消す"],
    ["矢印キー、Home、End", "音符を移動して選ぶ"],
    ["ダブルクリック、Shift+Enter", "音符を追加する（その場所に、または選んだ音符の後に）"],
    ["ドラッグ、Alt+矢印キー", "音符を動かす"],
    ["右端をドラッグ、Alt+Shift+← →", "音符の長さを変える"],
    ["Delete", "音符を削除する"],
    ["Ctrl+Z、Ctrl+Y", "元に戻す、やり直す"],
    ["スペース", "選んだ音符から再生する、停止する"],
  ],

  loading: "読み込んでいます…",
  cannotLoad: "このブラウザーでは WY Beta を起動できません: {error}",
  exampleOpened: "これは例です。音符を選んで歌詞を入力するか、お手持ちの曲を開いてください。",
  opened: "「{title}」を開きました。音符の数: {notes}。",
  fileUnreadable: "ファイル {name} を読み込めませんでした。",
  undone: "元に戻しました。",
  redone: "やり直しました。",
  noteAdded: "音符を追加しました: {place}。",
  noteMoved: "音符を動かしました: {place}。",
  noteDeleted: "音符を削除しました。",
  noNoteChosen: "先に音符を選んでください。",
  saved: "{name} として保存しました。",
  playing: "再生しています。",
  stopped: "停止しました。",

  emptied: "音符の歌詞を消しました。",
  sung: "「{lyric}」はこのように歌われます: {syllables}",
  notSung: "「{lyric}」には歌われるところがありません。",
  lost: "音符が足りず、{count} 音節が入りませんでした。音符を追加して、もう一度入力してください。",
  findings: {
    "unknown": "「{word}」は辞書にないので歌われません。後ろに角括弧で発音記号を書いてください。",
    "mark": "「{word}」は記号が付いているので歌われません。",
    "apostrophe": "「{word}」はアポストロフィが半角の ' ではないので歌われません。",
    "blank": "「{word}」は半角スペース以外の空白が付いているので歌われません。",
    "full-width": "「{word}」は全角文字なので歌われません。",
    "half-width-kana": "「{word}」は半角カナなので歌われません。",
    "kana-pair": "「{word}」は二文字で一音節のかながすぐ後に続くので歌われません。",
    "kanji": "「{word}」は漢字なので歌われません。かなで書いてください。",
    "other-character":
      "「{word}」は歌われない文字です。かな、または半角の英字で書いてください。",
    "hyphen-joins": "「{word}」はハイフンで一つの単語になっているので歌われません。",
    "outside-bracket":
      "「{word}」は歌われません。一行の中で歌われるのは最後の角括弧だけなので、別の音符に書いてください。",
    "empty-bracket": "「{word}」は角括弧が空なので歌われません。括弧の中に発音記号を書いてください。",
    "hyphen-holds": "「{word}」は歌われますが、ハイフンの分だけ後の音符に音が伸びます。",
    "zero": "「{word}」の 0 は直前の音を消すか、休みになります。",
  },
  typeMend: "「{mend}」と入力する",

  fitting: "合わせています…",
  fitted:
    "単語: {words}、そのまま: {asTheyAre}、ハイフン: {hyphens}、別の項目: {otherEntries}、" +
    "角括弧: {brackets}、合わせられなかったもの: {notFitted}。",
  leftBy: {
    "unknown": "「{word}」は歌われません。",
    "divided-otherwise": "「{word}」は音節の分かれ方が楽譜と違います。",
    "not-reached": "「{word}」には、ハイフンでは伸ばせない音節があります。",
  },
  goToWord: "「{word}」へ移動",
  more: "ほかに {count} 件あります。",
  fitByBrackets: "残りを角括弧の発音記号で合わせる",
};
