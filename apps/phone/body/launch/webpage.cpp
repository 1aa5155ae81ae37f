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
import RFB from './core/rfb.js';

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
  rfb.addEventListener('connect', () => { isUp = true; say(''); rfb.focus(); });
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
