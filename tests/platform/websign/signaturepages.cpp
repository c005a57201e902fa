#include "tests/platform/websign/signaturepages.h"

const QByteArray SigningPage = R"(<!DOCTYPE html><title>Sign</title><body style="margin:0">
<canvas id="pad" width="400" height="200" style="display:block;background:#eee"></canvas>
<p id="hint">PLEASE sign</p><input type="button" value="Help"><input type="button" value="Save Signature">
<script>
const pad = document.getElementById('pad');
const ink = pad.getContext('2d');
const strokes = [];
let points = 0;
function draw(event) {
  const stroke = strokes[strokes.length - 1];
  stroke.push(Math.round(event.offsetX * 16) + ',' + Math.round(event.offsetY * 16));
  ink.lineTo(event.offsetX, event.offsetY);
  ink.stroke();
  document.getElementById('hint').textContent = 'PLEASE sign, ' + ++points + ' points';
}
pad.addEventListener('mousedown', event => {
  strokes.push([]);
  ink.beginPath();
  draw(event);
});
pad.addEventListener('mousemove', event => { if (event.buttons && strokes.length) draw(event); });
pad.addEventListener('mouseup', () => { if (strokes.length) fetch('/drawn'); });

function check(text) {
  let crc = -1;
  for (let at = 0; at < text.length; ++at) {
    crc ^= text.charCodeAt(at);
    for (let bit = 0; bit < 8; ++bit) crc = crc >>> 1 ^ (crc & 1 ? 0xedb88320 : 0);
  }
  return (~crc >>> 0).toString(16).padStart(8, '0');
}
function signature() {
  const numbers = [pad.width * 16 + ',' + pad.height * 16].concat(strokes.map(stroke => stroke.join(' '))).join('/');
  const text = 'SVSIG1.0.0.' + btoa(numbers).replace(/\+/g, '-').replace(/\//g, '_').replace(/=/g, '');
  return text + '.' + check(text);
}
const [help, save] = document.getElementsByTagName('input');
help.onclick = () => { location.href = '/help'; };
save.onclick = () => { location.href = '/svsign?points=' + points + '&signature=' + signature(); };
</script></body>)";

const QByteArray SignedPage = R"(<!DOCTYPE html><title>Signed</title><body><script>
document.body.textContent = new URLSearchParams(location.search).get('signature');
</script></body>)";
