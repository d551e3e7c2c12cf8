// Gives a page's scripts the same times in each recording. Its clock itself is exact; but what a browser tells of it
// is what is left of the machine's own clock, with the rounding of that, and events carry the time at which the
// browser heard of them. So times come in whole tenths of a millisecond, on which all frames lie, and what a hand does
// comes at the time of a frame.
(fps => {
    'use strict';

    const tenths = milliseconds => Math.round(milliseconds * 10) / 10;

    const told = performance.now;
    Performance.prototype.now = function now() { return tenths(told.call(this)) };

    const ask = globalThis.requestAnimationFrame;
    globalThis.requestAnimationFrame = function requestAnimationFrame(callback) {
        if (typeof callback !== 'function') return ask(callback);
        return ask(time => callback(tenths(time)));
    };

    const stamp = Object.getOwnPropertyDescriptor(Event.prototype, 'timeStamp');
    Object.defineProperty(Event.prototype, 'timeStamp', {
        ...stamp,
        get() {
            const heard = stamp.get.call(this);
            if (!this.isTrusted || !(this instanceof UIEvent)) return tenths(heard);
            const shown = document.timeline.currentTime ?? heard;
            const framesAgo = Math.round((shown - heard) * fps / 1000);
            return tenths(shown - framesAgo * 1000 / fps);
        },
    });
})
