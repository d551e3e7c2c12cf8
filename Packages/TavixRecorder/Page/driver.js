// What the recorder asks of a page. It lives in a world of its own beside the page's scripts: it sees the same
// elements, and the page sees nothing of it. It moves nothing but what is scrolled.
globalThis.tavixDriver = (() => {
    'use strict';

    const words = text => (text ?? '').replace(/\s+/g, ' ').trim();
    const rounded = number => Math.round(number * 100) / 100;

    // Every element, also those within open shadow roots.
    function* elements(root = document) {
        for (const element of root.querySelectorAll('*')) {
            yield element;
            if (element.shadowRoot) yield* elements(element.shadowRoot);
        }
    }

    const boxOf = element => element.getBoundingClientRect();
    const isShown = element => {
        const box = boxOf(element);
        return box.width > 0 && box.height > 0 &&
            element.checkVisibility({ opacityProperty: true, visibilityProperty: true });
    };
    const nameOf = element => words(element.computedName || element.getAttribute('aria-label'));
    const textOf = element => words(element.innerText ?? element.textContent);
    const areaOf = element => boxOf(element).width * boxOf(element).height;

    const attributes = ['data-testid', 'data-test-id', 'data-test'];
    function byCss(selector) {
        try {
            return [...elements()].filter(element => element.matches(selector));
        } catch {
            return [];
        }
    }
    function byTestId(id) {
        return [...elements()].filter(element => attributes.some(a => element.getAttribute(a) === id));
    }
    // What can have a name of its own; to ask every element would take long.
    const nameable = 'a, button, input, select, textarea, summary, img, label, h1, h2, h3, h4, h5, h6, ' +
        '[role], [aria-label], [aria-labelledby], [title], [tabindex]';
    // As in "button:Save"; a plain name fits any role.
    function byName(identifier) {
        const colon = identifier.indexOf(':');
        const role = colon > 0 && /^[a-z]+$/i.test(identifier.slice(0, colon)) && identifier.slice(0, colon).toLowerCase();
        const named = (wanted, role) => [...elements()].filter(element => element.matches(nameable) &&
            nameOf(element) === wanted && (!role || element.computedRole.toLowerCase() === role));
        const whole = named(words(identifier));
        return whole.length || !role ? whole : named(words(identifier.slice(colon + 1)), role);
    }
    // The innermost elements that show exactly this text, or else hold it.
    function byText(text) {
        const wanted = words(text), shown = [...elements()].filter(isShown);
        for (const fits of [t => t === wanted, t => t.toLowerCase().includes(wanted.toLowerCase())]) {
            const all = shown.filter(element => fits(textOf(element)));
            const inner = all.filter(element => !all.some(other => other !== element && element.contains(other)));
            if (inner.length) return inner;
        }
        return [];
    }

    const ways = {
        accessibilityId: id => byTestId(id).concat(byName(id)),
        viewId: id => {
            const own = [...elements()].filter(element => element.id === id);
            return own.length ? own : byCss(id);
        },
        text: byText,
    };

    // One that is shown before one that is not; of several the first of the page.
    function candidates(kind, identifier) {
        const all = [...new Set(ways[kind](identifier))];
        return all.filter(isShown).concat(all.filter(element => !isShown(element)));
    }

    const describe = element => {
        const id = element.id ? '#' + element.id : '';
        const kind = [...element.classList].slice(0, 2).map(c => '.' + c).join('');
        return '<' + element.localName + id + kind + '>';
    };

    function parentOf(node) {
        return node.parentElement ?? node.getRootNode().host ?? null;
    }
    const holds = (outer, inner) => {
        for (let node = inner; node; node = parentOf(node)) if (node === outer) return true;
        return false;
    };
    function elementAt(x, y) {
        let found = document.elementFromPoint(x, y);
        while (found?.shadowRoot) {
            const inner = found.shadowRoot.elementFromPoint(x, y);
            if (!inner || inner === found) break;
            found = inner;
        }
        return found;
    }

    const page = () => document.scrollingElement ?? document.documentElement;
    const scrolls = (element, vertical) => {
        const room = vertical ? element.scrollHeight - element.clientHeight : element.scrollWidth - element.clientWidth;
        if (room < 1) return false;
        if (element === page()) return true;
        const style = getComputedStyle(element);
        return /auto|scroll/.test(vertical ? style.overflowY : style.overflowX);
    };
    function scrollerOf(element, vertical) {
        for (let node = element; node; node = parentOf(node)) if (scrolls(node, vertical)) return node;
        return scrolls(page(), vertical) ? page() : null;
    }
    // What of a scroller can be seen, in points of the window.
    function portOf(scroller) {
        const window = { left: 0, top: 0, right: innerWidth, bottom: innerHeight };
        if (scroller === page()) return window;
        const box = boxOf(scroller);
        return {
            left: Math.max(box.left, 0), top: Math.max(box.top, 0),
            right: Math.min(box.right, innerWidth), bottom: Math.min(box.bottom, innerHeight),
        };
    }

    let target = null, moving = null;

    const rectOf = element => {
        const box = boxOf(element);
        return { x: rounded(box.x), y: rounded(box.y), width: rounded(box.width), height: rounded(box.height) };
    };
    function visiblePart(element) {
        let { left, top, right, bottom } = boxOf(element);
        for (let node = parentOf(element); node; node = parentOf(node)) {
            if (node === page() || !/auto|scroll|hidden|clip/.test(getComputedStyle(node).overflow)) continue;
            const box = boxOf(node);
            left = Math.max(left, box.left), top = Math.max(top, box.top);
            right = Math.min(right, box.right), bottom = Math.min(bottom, box.bottom);
        }
        left = Math.max(left, 0), top = Math.max(top, 0);
        right = Math.min(right, innerWidth), bottom = Math.min(bottom, innerHeight);
        return { x: rounded(left), y: rounded(top), width: rounded(Math.max(right - left, 0)),
            height: rounded(Math.max(bottom - top, 0)) };
    }

    // Looks for the target and keeps it. Says where it is, or what is there instead.
    function find(kind, identifier) {
        const all = candidates(kind, identifier);
        target = all[0] ?? null;
        if (!target) return { isFound: false, near: nearest(kind, identifier) };
        if (!isShown(target)) return { isFound: true, isShown: false, what: describe(target) };
        return {
            isFound: true, isShown: true, what: describe(target), count: all.filter(isShown).length,
            rect: rectOf(target), part: visiblePart(target),
            isEnabled: !target.matches(':disabled') && !target.closest('[aria-disabled="true"], [inert]'),
        };
    }

    // Where a finger lands: the middle of the part that can be seen. `cover` says what lies over it there.
    function landing() {
        const part = visiblePart(target);
        const x = part.x + part.width / 2, y = part.y + part.height / 2;
        const hit = elementAt(x, y);
        const reaches = hit && (holds(target, hit) || holds(hit, target) || hit.closest?.('label')?.control === target);
        return { x, y, part, cover: reaches || !hit ? null : describe(hit) };
    }

    // What else could be meant: what is shown, by the same kind of name, the most alike first.
    function nearest(kind, identifier) {
        const names = new Set();
        for (const element of elements()) {
            if (!isShown(element)) continue;
            if (kind === 'viewId') element.id && names.add('#' + element.id);
            else if (kind === 'text') element.childElementCount || names.add(textOf(element));
            else {
                for (const a of attributes) element.hasAttribute(a) && names.add(element.getAttribute(a));
                if (element.matches(nameable)) {
                    const name = nameOf(element);
                    if (name && element.computedRole) names.add(element.computedRole + ':' + name);
                }
            }
        }
        const pairs = text => new Set([...text.toLowerCase()].map((c, i, all) => c + (all[i + 1] ?? '')));
        const wanted = pairs(identifier);
        const likeness = text => {
            const own = pairs(text);
            const both = [...own].filter(pair => wanted.has(pair)).length;
            return both / Math.max(own.size + wanted.size - both, 1);
        };
        return [...names].filter(name => name && name.length <= 60)
            .map(name => [likeness(name), name]).sort((a, b) => b[0] - a[0]).slice(0, 5).map(pair => pair[1]);
    }

    // How far the scrollers around the target must go until it stands well inside: the innermost that matters.
    function revealing() {
        const box = boxOf(target);
        for (const vertical of [true, false]) {
            for (let scroller = scrollerOf(parentOf(target) ?? target, vertical); scroller;
                scroller = scroller === page() ? null : scrollerOf(parentOf(scroller) ?? page(), vertical)) {
                const port = portOf(scroller);
                const [from, to, low, high] = vertical ? [box.top, box.bottom, port.top, port.bottom]
                    : [box.left, box.right, port.left, port.right];
                const margin = Math.min((high - low) * 0.12, 96);
                if (from >= low && to <= high) continue;
                if (to - from > high - low && from < high - margin && to > low + margin) continue;
                const middle = (from + to) / 2 - (low + high) / 2;
                const distance = to - from > high - low ? from - low - margin : middle;
                if (plan(scroller, vertical, distance)) return moving.distance;
            }
        }
        return 0;
    }

    function plan(scroller, vertical, distance) {
        const start = vertical ? scroller.scrollTop : scroller.scrollLeft;
        const room = vertical ? scroller.scrollHeight - scroller.clientHeight : scroller.scrollWidth - scroller.clientWidth;
        const rightToLeft = !vertical && getComputedStyle(scroller).direction === 'rtl';
        const end = Math.min(Math.max(start + distance, rightToLeft ? -room : 0), rightToLeft ? 0 : room);
        moving = { scroller, vertical, start, distance: end - start };
        return Math.abs(end - start) >= 1;
    }

    // Prepares a scroll of the target's content; 0 where nothing can scroll that way.
    function scrolling(vertical, distance, fractionOfPort) {
        const scroller = scrollerOf(target, vertical);
        if (!scroller) return 0;
        const port = portOf(scroller);
        const length = distance ?? (vertical ? port.bottom - port.top : port.right - port.left) * Math.abs(fractionOfPort);
        return plan(scroller, vertical, Math.sign(fractionOfPort) * length) ? moving.distance : 0;
    }
    function scrollTo(fraction) {
        const at = moving.start + moving.distance * fraction;
        moving.scroller.scrollTo({ [moving.vertical ? 'top' : 'left']: at, behavior: 'instant' });
    }

    const isEndless = animation => {
        const timing = animation.effect?.getComputedTiming();
        return !timing || !Number.isFinite(timing.endTime);
    };

    // What still moves, and a number that changes when something in the window moves without an animation.
    function motion() {
        const running = document.getAnimations()
            .filter(animation => animation.playState === 'running' && !isEndless(animation)).length;
        let layout = 0;
        const note = number => { layout = (Math.imul(layout, 31) + Math.round(number * 4)) | 0; };
        note(page().scrollTop), note(page().scrollLeft);
        let seen = 0;
        for (const element of elements()) {
            if (++seen > 1500) break;
            const box = boxOf(element);
            if (box.bottom < 0 || box.top > innerHeight) continue;
            note(box.x), note(box.y), note(box.width), note(box.height);
        }
        return { running, layout };
    }

    function settled() {
        const pictures = [...document.images].filter(image => !image.complete && image.loading !== 'lazy').length;
        return document.readyState === 'complete' && document.fonts.status === 'loaded' && pictures === 0;
    }

    // What a long press is to a page: its menu is asked for, and lifting the finger is no click.
    let isHeld = false;
    addEventListener('click', event => {
        if (!isHeld) return;
        isHeld = false;
        event.stopImmediatePropagation();
        event.preventDefault();
    }, true);
    function longPressed(x, y) {
        isHeld = true;
        const options = { bubbles: true, cancelable: true, composed: true, clientX: x, clientY: y, button: 2 };
        elementAt(x, y)?.dispatchEvent(new MouseEvent('contextmenu', options));
    }

    const focusedIsText = () => {
        let element = document.activeElement;
        while (element?.shadowRoot?.activeElement) element = element.shadowRoot.activeElement;
        return !!element && (element.isContentEditable || /^(input|textarea)$/.test(element.localName));
    };

    // A page that always has a frame to come counts its time in frames alone. One that has none lets its
    // animations begin at estimates of when a frame might have been.
    requestAnimationFrame(function next() { requestAnimationFrame(next) });

    return { find, landing, revealing, scrolling, scrollTo, motion, settled, longPressed, focusedIsText };
})();
