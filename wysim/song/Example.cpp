// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Example.h"

#include "wysim/song/JsonSong.h"

namespace wybeta::wysim::song {

namespace {

constexpr auto kExample = R"({
  "format": "wysim song 1",
  "title": "Hello さくら",
  "beats": 4,
  "beatType": 4,
  "pickup": 0.0,
  "tracks": [
    {"name": "Singer", "notes": [
      {"start": 0.0, "length": 1.0, "pitch": 72, "lyric": "Hello", "typed": true},
      {"start": 1.0, "length": 1.0, "pitch": 69, "lyric": "", "typed": false},
      {"start": 2.0, "length": 0.5, "pitch": 65, "lyric": "さくら", "typed": true},
      {"start": 2.5, "length": 0.5, "pitch": 67, "lyric": "", "typed": false},
      {"start": 3.0, "length": 1.0, "pitch": 69, "lyric": "", "typed": false},
      {"start": 4.0, "length": 1.5, "pitch": 67, "lyric": "twinkle", "typed": true},
      {"start": 5.5, "length": 0.5, "pitch": 65, "lyric": "", "typed": false},
      {"start": 6.0, "length": 2.0, "pitch": 65, "lyric": "star", "typed": true}
    ]}
  ]
})";

constexpr auto kJapaneseExample = R"({
  "format": "wysim song 1",
  "title": "さくら",
  "beats": 4,
  "beatType": 4,
  "pickup": 0.0,
  "tracks": [
    {"name": "歌", "notes": [
      {"start": 0.0, "length": 1.0, "pitch": 69, "lyric": "さくら", "typed": true},
      {"start": 1.0, "length": 1.0, "pitch": 69, "lyric": "", "typed": false},
      {"start": 2.0, "length": 2.0, "pitch": 71, "lyric": "", "typed": false},
      {"start": 4.0, "length": 1.0, "pitch": 69, "lyric": "さくら", "typed": true},
      {"start": 5.0, "length": 1.0, "pitch": 69, "lyric": "", "typed": false},
      {"start": 6.0, "length": 2.0, "pitch": 71, "lyric": "", "typed": false}
    ]}
  ]
})";

} // namespace

Song exampleSong() {
    return songFromJson(kExample);
}

Song japaneseExampleSong() {
    return songFromJson(kJapaneseExample);
}

} // namespace wybeta::wysim::song
