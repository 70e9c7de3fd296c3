// The orders come from server.py, which judges what is measured here.
'use strict';

const browser = new URLSearchParams(location.search).get('browser');
const page = Math.random().toString(36).slice(2); // a reloaded page is another one
const kMostTries = 8;
const video = document.querySelector('video');
const changeCanvas = canvasContext(160, 1);
let measurement = null;

function canvasContext(width, height) {
    const canvas = new OffscreenCanvas(width, height);
    return canvas.getContext('2d', {willReadFrequently: true});
}

function post(what, body) {
    return fetch(`/${what}?browser=${browser}&page=${page}`, {method: 'POST', body});
}

function tell(event) {
    document.querySelector('p').textContent = `${browser}: ${event}`;
    post('event', event);
}

// Whether a picture comes; not when the browser ends the track first, or nothing happens.
function firstPicture(track) {
    return new Promise(done => {
        track.addEventListener('ended', () => done(false));
        video.requestVideoFrameCallback(() => done(true));
        setTimeout(() => done(track.readyState === 'live'), 5000); // then it is to be measured
    });
}

// Tries again, as a person does, where the browser itself is at fault: it may ask the media service for
// its cameras before it is allowed to see them (NotFoundError), and its capture process may crash while
// it opens one, which is told as NotReadableError or by a track that ends.
async function openTrack() {
    for (let tries = 1; ; ++tries) {
        try {
            const stream = await navigator.mediaDevices.getUserMedia({video: true});
            const track = stream.getVideoTracks()[0];
            video.srcObject = stream;
            if (await firstPicture(track) || tries === kMostTries) {
                return {track, tries};
            }
            tell('the track ended while it was opened');
        } catch (error) {
            if (!/^Not(Found|Readable)Error$/.test(error.name) || tries === kMostTries) {
                throw error;
            }
            tell(`no camera yet: ${error.name}`);
            await new Promise(done => setTimeout(done, 500));
        }
    }
}

async function openCamera() {
    try {
        const {track, tries} = await openTrack();
        for (const event of ['ended', 'mute', 'unmute']) {
            track.addEventListener(event, () => tell(`"${event}"`));
        }
        await post('opened', JSON.stringify({label: track.label, tries}));
        tell(`the camera "${track.label}"`);
    } catch (error) {
        await post('opened', JSON.stringify({error: `${error.name}: ${error.message}`}));
        tell(`no camera: ${error.name}`);
    }
}

// Whether the picture differs from the one before, along a line through the box that slides near the
// bottom of a phone's picture.
function sawChange([sourceWidth, sourceHeight]) {
    const scale = Math.min(video.videoWidth / sourceWidth, video.videoHeight / sourceHeight);
    const [width, height] = [sourceWidth * scale, sourceHeight * scale];
    const left = (video.videoWidth - width) / 2;
    const y = (video.videoHeight - height) / 2 + height * 7 / 8;
    changeCanvas.drawImage(video, left, y, width, 2, 0, 0, 160, 1);
    const line = changeCanvas.getImageData(0, 0, 160, 1).data;
    const before = measurement.line;
    measurement.line = line;
    return before === null || line.some((value, index) => value !== before[index]);
}

function onPicture(now, metadata) {
    video.requestVideoFrameCallback(onPicture);
    if (measurement !== null) {
        measurement.times.push(now);
        measurement.shown.push(metadata.presentedFrames);
        measurement.changed += sawChange(measurement.source) ? 1 : 0;
    }
}

function onRepaint() {
    requestAnimationFrame(onRepaint);
    if (measurement !== null) {
        ++measurement.repaints;
    }
}

async function measure(order) {
    const began = performance.now();
    measurement = {times: [], shown: [], changed: 0, repaints: 0, line: null,
                   source: order.source};
    await new Promise(done => setTimeout(done, order.seconds * 1000));
    const seen = measurement;
    measurement = null;
    seen.seconds = (performance.now() - began) / 1000;
    delete seen.line;
    await report(seen);
}

// The figures in a line of JSON, then the picture's pixels (RGBA).
async function report(seen) {
    seen.width = video.videoWidth;
    seen.height = video.videoHeight;
    const parts = [JSON.stringify(seen), '\n'];
    if (seen.width > 0) {
        const canvas = canvasContext(seen.width, seen.height);
        canvas.drawImage(video, 0, 0);
        parts.push(canvas.getImageData(0, 0, seen.width, seen.height).data);
    }
    await post('measured', new Blob(parts));
}

async function obey() {
    for (;;) {
        const answer = await fetch(`/order?browser=${browser}&page=${page}`);
        if (answer.status === 200) {
            const order = await answer.json();
            if (order.reload) {
                location.reload();
                return;
            }
            await measure(order);
        }
    }
}

video.requestVideoFrameCallback(onPicture);
requestAnimationFrame(onRepaint);
openCamera().then(obey);
