#include "webpage.h"

namespace phone {

namespace {

constexpr const char page[] = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="referrer" content="no-referrer">
<title>Phone</title>
<link rel="icon" href="data:,">
<style>
  html, body { margin: 0; height: 100%; background: #dde2e9; color: #1a1f26;
               font: 16px/1.5 "Noto Sans", "DejaVu Sans", sans-serif; }
  @media (prefers-color-scheme: dark) { html, body { background: #0b0d10; color: #f1f3f6; } }
  #phone { width: 100%; height: 100%; }
  #note { position: fixed; inset: 0; display: flex; align-items: center; justify-content: center;
          padding: 2em; text-align: center; }
  #note[hidden] { display: none; }
</style>
</head>
<body>
<div id="phone"></div>
<p id="note" role="status">The phone is being connected…</p>
<script type="module">
import Display from './core/display.js';
import RFB from './core/rfb.js';

// Qt's server gives a pixel as blue, green, red and nothing, whatever it is asked for.
const draw = Display.prototype.blitImage;
Display.prototype.blitImage = function (x, y, width, height, data, offset, isOldNews) {
  if (isOldNews) return draw.call(this, x, y, width, height, data, offset, isOldNews);
  const pixels = data.slice(offset, offset + width * height * 4);
  for (let at = 0; at < pixels.length; at += 4) {
    const blue = pixels[at];
    pixels[at] = pixels[at + 2];
    pixels[at + 2] = blue;
    pixels[at + 3] = 255;
  }
  return draw.call(this, x, y, width, height, pixels, 0, isOldNews);
};

// The page goes on where the phone's own ground ends.
const goOn = () => {
  const canvas = document.querySelector('canvas');
  const [red, green, blue] = canvas ? canvas.getContext('2d').getImageData(1, 1, 1, 1).data : [];
  if (isUp && canvas) document.body.style.background = `rgb(${red}, ${green}, ${blue})`;
};

const note = document.getElementById('note');
const say = text => { note.textContent = text; note.hidden = !text; };
const token = location.hash.slice(1);
let isUp = false;

if (!token) {
  say('This address is not whole: open the one that vornphone has printed, with all that stands behind #.');
} else {
  const scheme = location.protocol === 'https:' ? 'wss' : 'ws';
  const rfb = new RFB(document.getElementById('phone'),
                      `${scheme}://${location.host}/websockify?token=${encodeURIComponent(token)}`);
  rfb.scaleViewport = true;
  rfb.background = 'transparent';
  rfb.addEventListener('connect', () => { isUp = true; say(''); rfb.focus(); setInterval(goOn, 500); });
  rfb.addEventListener('disconnect', () => say(isUp
    ? 'The phone is off. Start vornphone again and open the address that it prints.'
    : 'The phone does not answer to this address. Open the one that vornphone has printed last.'));
}
</script>
</body>
</html>
)";

} // namespace

std::string webPage()
{
    return page;
}

} // namespace phone
