// Opens the pages for today's browsers in Chromium, Firefox and WebKitGTK, and checks with a real mouse and keys
// that they do what they promise; before that, that every one of them is valid.
//
// node today.js PAGES_FOLDER short|all

import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { readFileSync, readdirSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import { pathToFileURL } from 'node:url';
import { check, fail, tellOutcome } from './checks.js';
import { startChromium, startFirefox, startWebKit } from './engines.js';
import { TodayArea, pointsOf } from './todayareas.js';

const [folder, extent] = process.argv.slice(2);
const isShort = extent === 'short';
const require = createRequire(import.meta.url);
const maps = JSON.parse(readFileSync(join(folder, 'maps.json'), 'utf8'));
const pictureSize = [400, 300];
const hitPoints = isShort ? 2500 : 10000;
const widths = isShort ? [800] : [200, 320, 800, 2000];
const scales = isShort ? [1] : [0.5, 1, 1.5, 2, 3];

/** Longer than a tip or message stays when the mouse has gone. */
const patience = 3000;

const pathOf = (name) => join(folder, `${name}.html`);
const urlOf = (name) => pathToFileURL(pathOf(name)).href;
const names = () => readdirSync(folder).filter((name) => /^(svg|map|several).*\.html$/.test(name));
const isSmall = (name) => !/hostile|-40|-500/.test(name);
const checked = () => [
    'new.html',
    ...names().filter((name) => !isShort || isSmall(name) || /hostile-(0|4|9|17)\./.test(name)),
];

async function becomes(engine, source, expected) {
    let value;
    for (const start = Date.now(); Date.now() - start < patience; ) {
        // While a page gives way to the next there is none to ask.
        value = await engine.run(source).catch((error) => error.message);
        if (JSON.stringify(value) === JSON.stringify(expected)) {
            return;
        }
        await sleep(30);
    }
    assert.deepEqual(value, expected, source);
}

// What is valid.

function nuFindsNothing() {
    const jar = join(require.resolve('vnu-jar/package.json'), '..', 'build', 'dist', 'vnu.jar');
    const files = checked().map((name) => join(folder, name));
    const { stderr, status } = spawnSync('java', ['-jar', jar, ...files], { encoding: 'utf8', maxBuffer: 1e8 });
    assert.equal(stderr, '');
    assert.equal(status, 0);
}

async function htmlValidateFindsNothing() {
    const { HtmlValidate } = await import('html-validate');
    const validator = new HtmlValidate({ root: true, extends: ['html-validate:recommended'] });
    for (const name of checked()) {
        const report = await validator.validateFile(join(folder, name));
        assert.deepEqual(report.results.flatMap((result) => result.messages), [], name);
    }
}

async function axeFindsNothing(engine) {
    const axe = readFileSync(require.resolve('axe-core/axe.min.js'), 'utf8');
    for (const name of names().filter((one) => isSmall(one) && !one.includes('special'))) {
        await engine.open(urlOf(name.replace('.html', '')));
        await engine.page.evaluate(axe);
        const { violations } = await engine.page.evaluate(() => window.axe.run());
        assert.deepEqual(
            violations.map((violation) => `${violation.id}: ${violation.nodes[0].html}`),
            [],
            name,
        );
    }
}

// Where the areas are.

/** In the page: the number of the area that is at each point, found by what its shape says of itself. */
function hitsAt(points, areas, [width, height]) {
    const numbers = (shape) => {
        const of = (...attributes) => attributes.map((name) => Number(shape.getAttribute(name)));
        if (shape.localName === 'rect') {
            const [x, y, w, h] = of('x', 'y', 'width', 'height');
            return [x, y, x + w, y + h];
        }
        return shape.localName === 'circle'
            ? of('cx', 'cy', 'r')
            : shape.getAttribute('points').split(/[ ,]/).map(Number);
    };
    const sorted = (list) => (list.length === 4 ? [...list].sort((a, b) => a - b) : list).join();
    const known = areas.map(sorted);
    const box = document.querySelector('.imap img').getBoundingClientRect();
    return points.map(([x, y]) => {
        const left = box.left + (x * box.width) / width;
        const top = box.top + (y * box.height) / height;
        scrollTo(left + scrollX - innerWidth / 2, top + scrollY - innerHeight / 2);
        const now = document.querySelector('.imap img').getBoundingClientRect();
        const found = document.elementFromPoint(now.left + (x * now.width) / width, now.top + (y * now.height) / height);
        const shape = found?.matches('rect,circle,polygon') ? found : null;
        return shape ? known.indexOf(sorted(numbers(shape))) : -1;
    });
}

async function areasAreWhereTheyWereDrawn(engine, name) {
    const areas = maps[name].map((area) => new TodayArea(area));
    const points = pointsOf(areas, pictureSize, hitPoints);
    const call = (some) =>
        `(${hitsAt})(${JSON.stringify(some)},${JSON.stringify(areas.map((area) => area.coords))},${JSON.stringify(pictureSize)})`;
    const hits = await engine.run(call(points.map(([x, y]) => [x, y])));
    const wrong = points.map((point, i) => [...point, hits[i]]).filter(([, , expected, hit]) => expected !== hit);
    assert.ok(points.length > hitPoints / 2, 'there are hardly any points');
    assert.ok(points.some(([, , expected]) => expected >= 0));
    assert.deepEqual(wrong.slice(0, 5), [], `${wrong.length} of ${points.length} points are wrong`);
}

/** The place of a point of the picture in the window. */
async function placeOf(engine, [x, y], selector = '.imap img') {
    const box = await engine.run(
        `(()=>{const e=document.querySelector(${JSON.stringify(selector)});e.scrollIntoView({block:"center"});` +
            'const r=e.getBoundingClientRect();return [r.x,r.y,r.width,r.height]})()',
    );
    const shown = selector === '.imap img' ? pictureSize : [box[2], box[3]];
    return [box[0] + (x * box[2]) / shown[0], box[1] + (y * box[3]) / shown[1]];
}

// What happens over them.

const shownMessages =
    '[...document.querySelectorAll(".imap-out>*")].filter(e=>e.checkVisibility()).map(e=>e.id||"start")';
const hasStart = (name) => /texts|pictures/.test(name);

async function messagesFollowTheMouse(engine, name) {
    const start = hasStart(name) ? ['start'] : [];
    await becomes(engine, shownMessages, start);
    for (const [i, area] of maps[name].map((one) => new TodayArea(one)).entries()) {
        await engine.moveTo(...(await placeOf(engine, area.middle)));
        await becomes(engine, shownMessages, [`Shapes-${i + 1}`]);
    }
    await engine.moveTo(2, 2);
    await becomes(engine, shownMessages, start);
}

async function messagesFollowTheKeys(engine, name) {
    const start = hasStart(name) ? ['start'] : [];
    await engine.press('Tab');
    await becomes(engine, shownMessages, ['Shapes-1']);
    await engine.press('Tab');
    await becomes(engine, shownMessages, ['Shapes-2']);
    await engine.press('Escape');
    await becomes(engine, shownMessages, start);
    await engine.press('Tab');
    await becomes(engine, shownMessages, ['Shapes-3']);
}

/** WCAG 1.4.13: it can be hovered over, stays meanwhile, and goes with Escape. */
async function tipsCanBeReachedAndDismissed(engine, name) {
    await engine.moveTo(...(await placeOf(engine, new TodayArea(maps[name][0]).middle)));
    await becomes(engine, shownMessages, ['Shapes-1']);
    const tip = await engine.run(
        '(()=>{const r=document.querySelector(":popover-open").getBoundingClientRect();return [r.x+r.width/2,r.y+r.height/2]})()',
    );
    await engine.moveTo(...tip);
    await sleep(500);
    assert.deepEqual(await engine.run(shownMessages), ['Shapes-1']);
    await engine.press('Escape');
    await becomes(engine, shownMessages, []);
}

const focusedAddress = 'document.activeElement?.getAttribute("href")??null';

async function tabGoesThroughTheAreasInOrder(engine, name) {
    for (const { link } of maps[name]) {
        await engine.press('Tab');
        await becomes(engine, focusedAddress, link);
    }
}

async function linksAreFollowed(engine, name) {
    await engine.click(...(await placeOf(engine, new TodayArea(maps[name][0]).middle)));
    await becomes(engine, 'location.pathname.split("/").pop()', 'red.html');
}

/** Areas of a map have no place of their own in Firefox; what the page is told is the same in all. */
async function mapAreasAreHit(engine, name) {
    await engine.run('void addEventListener("mousemove",e=>{window.under=e.target},true)');
    const place = (point) => placeOf(engine, point, 'img[usemap]');
    for (const { coords, shape, link } of maps[name].slice(0, 3)) {
        const area = new TodayArea({ shape, coords });
        await engine.moveTo(...(await place(area.middle)));
        await becomes(engine, 'window.under?.getAttribute("href")??null', link);
        await engine.moveTo(...(await place([395, 295])));
        await becomes(engine, 'window.under?.getAttribute("href")??null', null);
    }
}

async function scriptLeavesNoNames(engine) {
    const all = 'Object.getOwnPropertyNames(window).sort()';
    await engine.open(urlOf('svg-links-3'));
    const before = await engine.run(all);
    await engine.open(urlOf('svg-tips-3'));
    const added = (await engine.run(all)).filter((name) => !before.includes(name) && !/^\d+$/.test(name));
    assert.deepEqual(added, []);
}

/** A page whose policy allows the two constants by their hashes, and nothing else. */
function writePolicyPage() {
    const text = readFileSync(pathOf('svg-tips-3'), 'utf8');
    const hash = (element) => {
        const [, content] = text.match(new RegExp(`<${element} data-imap="1">([^]*?)</${element}>`));
        return `'sha256-${createHash('sha256').update(content).digest('base64')}'`;
    };
    const policy = `default-src 'none'; img-src file:; style-src ${hash('style')}; script-src ${hash('script')}`;
    const meta = `<meta http-equiv="Content-Security-Policy" content="${policy}">`;
    writeFileSync(pathOf('policy'), text.replace('<meta charset="utf-8">', `$&\n${meta}`));
    maps.policy = maps['svg-tips-3'];
}

async function checkMany(engine, many) {
    await engine.open(urlOf('svg-tips-500'));
    const [x, y] = await placeOf(engine, [200, 150]);
    await engine.run(
        'void(window.worst=0,addEventListener("pointerover",()=>{const t=performance.now();requestAnimationFrame(()=>' +
            '{window.worst=Math.max(window.worst,performance.now()-t)})},true))',
    );
    for (let i = 0; i < many; ++i) {
        await engine.moveTo(x + ((i * 37) % 150), y + ((i * 53) % 100));
    }
    return engine.run('window.worst');
}

async function checkEngine(engine) {
    const visit = (name, what, act) =>
        check(`${engine.name}, ${name}: ${what}`, async () => {
            engine.errors.length = 0;
            await engine.moveTo(2, 2);
            await engine.open(urlOf(name));
            await act(engine, name);
            assert.deepEqual(engine.errors, [], 'the page has had errors');
        });
    await engine.resize(1000, 800);
    for (const name of ['svg-texts-3', 'svg-pictures-3', 'svg-tips-3', 'svg-tips-rtl', 'policy']) {
        await visit(name, 'messages follow the mouse', messagesFollowTheMouse);
        await visit(name, 'messages follow the keys', messagesFollowTheKeys);
    }
    await visit('svg-tips-3', 'tips can be reached and dismissed', tipsCanBeReachedAndDismissed);
    for (const name of ['svg-links-3', 'svg-messages-3', 'map-links-3']) {
        await visit(name, 'Tab goes through the areas in order', tabGoesThroughTheAreasInOrder);
    }
    await visit('svg-links-3', 'links are followed', linksAreFollowed);
    await visit('map-links-3', 'areas are hit inside and missed outside', mapAreasAreHit);
    await check(`${engine.name}: the script leaves no names behind`, () => scriptLeavesNoNames(engine));
    for (const scale of engine.page && engine.name === 'Chromium' ? scales : [1]) {
        for (const width of widths) {
            await engine.resize(width, 800, scale);
            for (const name of ['svg-links-3', 'svg-links-rtl', 'svg-texts-special', 'svg-links-40']) {
                await visit(name, `areas are where they were drawn, ${width} wide, ${scale}x`, areasAreWhereTheyWereDrawn);
            }
        }
    }
    await engine.resize(1000, 800);
}

/** Text of the page would be cut off there if something were wider than the window. */
async function nothingIsWiderThanTheWindow(engine) {
    for (const name of names().filter((one) => /^svg.*-(3|rtl)\.html/.test(one))) {
        await engine.open(urlOf(name.replace('.html', '')));
        const [needed, there] = await engine.run('[document.documentElement.scrollWidth,innerWidth]');
        assert.ok(needed <= there, `${name} takes ${needed} of ${there}`);
    }
}

/** A finger on an area without a link shows its message, one beside it takes that away; a link is followed. */
async function fingersShowMessagesAndFollowLinks(engine) {
    const tap = async (point) => engine.page.touchscreen.tap(...(await placeOf(engine, point)));
    const tips = '[...document.querySelectorAll(":popover-open")].map(e=>e.textContent)';
    await engine.page.setViewport({ width: 1000, height: 800, hasTouch: true });
    await engine.open(urlOf('svg-tips-special'));
    const withoutLink = maps['svg-tips-special'].find(({ link, message }) => !link && message);
    await tap(new TodayArea(withoutLink).middle);
    await becomes(engine, tips, [withoutLink.message]);
    await tap([5, 295]);
    await becomes(engine, tips, []);
    await engine.open(urlOf('svg-tips-3'));
    await tap(new TodayArea(maps['svg-tips-3'][0]).middle);
    await becomes(engine, 'location.pathname.split("/").pop()', 'red.html');
}

async function checkChromiumAlone(engine) {
    await check('axe finds nothing', () => axeFindsNothing(engine));
    await engine.resize(320, 640);
    await check('axe finds nothing in a narrow window', () => axeFindsNothing(engine));
    await check('nothing is wider than a narrow window', () => nothingIsWiderThanTheWindow(engine));
    await check('fingers show messages and follow links', () => fingersShowMessagesAndFollowLinks(engine));
    await engine.resize(1000, 800);
    for (const feature of [
        [{ name: 'prefers-color-scheme', value: 'dark' }],
        [{ name: 'forced-colors', value: 'active' }],
    ]) {
        const session = await engine.page.createCDPSession();
        await session.send('Emulation.setEmulatedMedia', { features: feature });
        await check(`axe finds nothing with ${feature[0].name} ${feature[0].value}`, () => axeFindsNothing(engine));
        await session.send('Emulation.setEmulatedMedia', { features: [] });
    }
    await check('without script all messages are there', async () => {
        await engine.page.setJavaScriptEnabled(false);
        await engine.open(urlOf('svg-tips-3'));
        await engine.page.setJavaScriptEnabled(true);
        assert.deepEqual(await engine.run(shownMessages), ['Shapes-1', 'Shapes-2', 'Shapes-3']);
    });
    await check('links and messages are there on paper', async () => {
        await engine.open(urlOf('svg-tips-3'));
        const paper = Buffer.from(await engine.page.pdf()).toString('latin1');
        for (const link of ['red.html', 'green.html', 'blue.html']) {
            assert.ok(paper.includes(link), `${link} is no link on paper`);
        }
        await engine.page.emulateMediaType('print');
        assert.deepEqual(await engine.run(shownMessages), ['Shapes-1', 'Shapes-2', 'Shapes-3']);
        await engine.page.emulateMediaType(null);
    });
    // A time, so nothing for a machine that has other work.
    if (!isShort) {
        await check('500 areas react within a frame or two', async () => {
            const worst = await checkMany(engine, 200);
            console.log(`        ${worst.toFixed(1)} ms at the slowest`);
            assert.ok(worst > 0 && worst < 100);
        });
    }
}

async function withEngine(start, use) {
    let engine;
    try {
        engine = await start();
        await use(engine);
    } catch (error) {
        fail('a browser', error);
    } finally {
        await engine?.close();
    }
}

writePolicyPage();
await check('the Nu checker finds nothing', nuFindsNothing);
await check('html-validate finds nothing', htmlValidateFindsNothing);
await withEngine(
    () => startChromium('/usr/bin/chromium'),
    async (engine) => {
        await checkEngine(engine);
        await checkChromiumAlone(engine);
    },
);
await withEngine(() => startFirefox('/usr/bin/firefox-esr'), checkEngine);
// WebKitGTK takes keys only while its window has the focus, which a screen without a window manager does not
// always give it; so it is tried where someone can look at it.
if (!isShort) {
    await withEngine(startWebKit, checkEngine);
}
tellOutcome("Pages for today's browsers");
