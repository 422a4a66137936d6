// The page in which Ruffle plays: opens a movie, holds it, lets it go, closes it, as the program calls for it.
// What it has to tell goes to the program as a request for an address: "told/<movie>/<word>/<text>...".
"use strict";

window.RufflePlayer = window.RufflePlayer || {};
window.RufflePlayer.config = {
  publicPath: document.baseURI.replace(/[^/]*$/, ""),
  polyfills: false,
  autoplay: "on",
  unmuteOverlay: "hidden",
  splashScreen: false,
  contextMenu: "off",
  menu: false,
  showSwfDownload: false,
  warnOnUnsupportedContent: false,
  preferredRenderer: "canvas",
  allowScriptAccess: true,  // without it no fscommand leaves a movie
  allowFullscreen: false,
  openUrlMode: "deny",
  backgroundExecutionMode: "none",
  letterbox: "off",
  forceScale: true,
  wmode: "opaque",
};

const LONGEST_STEP = 250;  // ms; after a pause of the display a movie goes on, it does not jump
const LONGEST_TEXT = 4096;  // characters of a command or its arguments

let player = null;
let own = null;  // of the player: what a movie offers to the page takes names of the player's own
let movie = 0;
let held = true;

// ---- The one way out: the program's own addresses

function ask(address) {
  return new Promise((answered, failed) => {
    const request = new XMLHttpRequest();
    request.open("GET", address);
    request.responseType = "arraybuffer";
    request.onload = () => answered(request.response);
    request.onerror = () => failed(new Error(address));
    request.send();
  });
}

// The web engine has no fetch for addresses of the program. Ruffle asks for its machine code by it.
window.fetch = (address) =>
  ask(typeof address === "string" ? address : address.url || String(address))
    .then((bytes) => new Response(bytes, { headers: { "Content-Type": "application/wasm" } }));

let told = Promise.resolve();

function tell(number, word, ...texts) {
  const parts = texts.map((text) => encodeURIComponent(String(text).slice(0, LONGEST_TEXT)));
  const address = ["told", number, word, ...parts].join("/");
  told = told.then(() => ask(address)).catch(() => {});
}

// ---- The time of the movie: it stands while the movie is held

const nextFrame = window.requestAnimationFrame.bind(window);
let time = 0;
let before = 0;

window.requestAnimationFrame = (tick) => nextFrame((now) => {
  if (!held) time += Math.min(now - before, LONGEST_STEP);
  before = now;
  tick(time);
});

// Ruffle breaks off by an exception that nobody catches. It shows a page about that, which is not for learners.
window.addEventListener("error", () => {
  tell(movie, "failed");
  closeMovie();
});

// ---- What the program calls

function openMovie(number, scale, background, isHeld) {
  closeMovie();
  movie = number;
  held = isHeld;
  time = 0;
  ask("movie/" + number).then((bytes) => {
    if (movie !== number) return;
    player = window.RufflePlayer.newest().createPlayer();
    document.body.appendChild(player);
    own = player.ruffle();
    own.addFSCommandHandler((command, texts) => tell(number, "command", command, texts));
    player.addEventListener("loadeddata", () => {
      // One frame on: the first, with its commands.
      if (movie === number) time += 1000 / (own.metadata.frameRate || 1);
    });
    return own.load({ data: new Uint8Array(bytes), scale: scale, backgroundColor: background });
  }).catch(() => tell(number, "failed"));
}

function holdMovie() {
  held = true;
  if (player) own.suspend();
}

function playMovie() {
  held = false;
  if (player) own.resume();
}

function closeMovie() {
  movie = 0;
  held = true;
  if (player) Element.prototype.remove.call(player);
  player = null;
}

// ---- What the learner does

window.addEventListener("pointerdown", () => tell(movie, "entered"), true);
window.addEventListener("focus", () => tell(movie, "entered"));
window.addEventListener("contextmenu", (event) => { event.preventDefault(); event.stopPropagation(); }, true);
