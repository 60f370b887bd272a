// Opens the pages for today's browsers in Chromium, Firefox and WebKitGTK, and checks with a real mouse and keys
// that they do what they promise.
//
// node today.js PAGES_FOLDER short|all

import assert from 'node:assert/strict';
import { check, fail, tellOutcome } from './checks.js';
import { startChromium, startFirefox, startWebKit } from './engines.js';
import * as does from './todaybehaviour.js';
import { shownMessages } from './todaybehaviour.js';
import { TodayArea } from './todayareas.js';
import { areasAreWhereTheyWereDrawn, placeOf } from './todayhits.js';
import { becomes, isShort, maps, names, shown, shownOtherwise, urlOf } from './todaypages.js';

const windowSize = [1000, 800];
const hitPages = ['svg-links-3', 'svg-links-rtl', 'svg-texts-special', 'svg-texts-larger', 'svg-links-40'];
const elementPages = ['map-links-3', 'map-links-larger', 'map-links-40'];
const widths = isShort ? [800] : [200, 320, 800, 2000];
const scales = isShort ? [1] : [1, 2];
const zooms = isShort ? [] : [0.5, 0.75, 1.5, 3];

function visitor(engine) {
    return (name, what, act) =>
        check(`${engine.name}, ${name}: ${what}`, async () => {
            engine.errors.length = 0;
            await engine.moveTo(2, 2);
            await engine.open(urlOf(name));
            await act(engine, name);
            assert.deepEqual(await engine.seenErrors(), [], 'the page has had errors');
        });
}

async function checkBehaviour(engine) {
    const visit = visitor(engine);
    const policies = Object.keys(maps).filter((name) => /^policy-svg-(pictures|texts|tips)/.test(name));
    const scripted = ['svg-texts-3', 'svg-pictures-3', 'svg-tips-3', 'svg-tips-rtl'];
    for (const name of [...scripted, ...(isShort ? policies.slice(-1) : policies)]) {
        await visit(name, 'messages follow the mouse', does.messagesFollowTheMouse);
        await visit(name, 'messages follow the keys', does.messagesFollowTheKeys);
    }
    for (const name of ['svg-texts-3', 'svg-pictures-3']) {
        await visit(name, 'a message stays while the mouse is in the figure', does.messageStaysWhileTheMouseIsInTheFigure);
    }
    await visit('svg-tips-3', 'tips can be reached and dismissed', does.tipsCanBeReachedAndDismissed);
    await visit('svg-tips-3', 'tips are in the window', does.tipsAreInTheWindow);
    await visit('several', 'maps keep to their own messages', does.mapsKeepToTheirOwnMessages);
    for (const name of ['svg-links-3', 'svg-messages-3', 'map-links-3']) {
        await visit(name, 'Tab goes through the areas in order', does.tabGoesThroughTheAreasInOrder);
    }
    for (const name of ['svg-links-3', 'policy-svg-links-3']) {
        await visit(name, 'hover and focus are seen', does.hoverAndFocusAreSeen);
    }
    await visit('svg-links-3', 'links are followed', does.linksAreFollowed);
    await visit('svg-links-3', 'links are followed by Enter', does.linksAreFollowedByEnter);
    await visit('map-links-3', 'areas are hit inside and missed outside', does.mapAreasAreHit);
    await check(`${engine.name}: the script leaves no names behind`, () => does.scriptLeavesNoNames(engine));
}

async function checkHits(engine) {
    const visit = visitor(engine);
    // Firefox tells no more of an area than the picture that it is in.
    const pages = engine.name === 'Firefox' ? hitPages : [...hitPages, ...elementPages];
    for (const scale of engine.page ? scales : [1]) {
        for (const width of widths) {
            await engine.resize(width, windowSize[1], scale);
            for (const name of pages) {
                await visit(name, `areas are where they were drawn, ${width} wide, ${scale}x`, areasAreWhereTheyWereDrawn);
            }
        }
    }
    await engine.resize(...windowSize);
}

async function checkZoomed(engine) {
    for (const factor of zooms) {
        await engine.zoomTo(factor);
        await engine.resize(...windowSize);
        const percent = Math.round(engine.zoom * 100);
        const visit = visitor(engine);
        await visit('svg-links-3', `the zoom is ${percent} %`, () =>
            becomes(engine, `Math.abs(innerWidth*${engine.zoom}-${windowSize[0]})<=${2 * engine.zoom}`, true),
        );
        for (const name of [...hitPages, ...(engine.name === 'Firefox' ? [] : elementPages)]) {
            await visit(name, `areas are where they were drawn, at ${percent} %`, areasAreWhereTheyWereDrawn);
        }
        await visit('svg-tips-3', `messages follow the mouse, at ${percent} %`, does.messagesFollowTheMouse);
    }
}

async function checkEngine(engine) {
    await engine.resize(...windowSize);
    await checkBehaviour(engine);
    await checkHits(engine);
}

/** Text of the page would be cut off there if something were wider than the window. */
async function nothingIsWiderThanTheWindow(engine) {
    for (const name of names.filter((one) => /^svg.*-(3|rtl|larger|special)$/.test(one))) {
        await engine.open(urlOf(name));
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

const allMessages = ['Shapes-1', 'Shapes-2', 'Shapes-3'];

async function allMessagesAreThereWithoutAMouse(engine) {
    await engine.page.setViewport({ width: 400, height: 800, isMobile: true, hasTouch: true });
    await engine.open(urlOf('svg-texts-3'));
    assert.equal(await engine.run('matchMedia("(any-hover:hover)").matches'), false);
    assert.deepEqual(await engine.run(shownMessages), ['start', ...allMessages]);
}

async function allMessagesAreThereWithoutScript(engine) {
    await engine.page.setJavaScriptEnabled(false);
    await engine.open(urlOf('svg-tips-3'));
    await engine.page.setJavaScriptEnabled(true);
    assert.deepEqual(await engine.run(shownMessages), allMessages);
}

async function linksAndMessagesAreThereOnPaper(engine) {
    for (const mode of ['links', 'messages', 'pictures', 'texts', 'tips']) {
        await engine.open(urlOf(`svg-${mode}-3`));
        const paper = Buffer.from(await engine.page.pdf()).toString('latin1');
        for (const link of ['red.html', 'green.html', 'blue.html']) {
            assert.ok(paper.includes(link), `${link} is no link on paper`);
        }
    }
    await engine.page.emulateMediaType('print');
    assert.deepEqual(await engine.run(shownMessages), allMessages);
    await engine.page.emulateMediaType(null);
}

/** What Chromium tells screen readers of the areas: role, name and description. */
async function screenReadersAreTold(engine) {
    const session = await engine.page.createCDPSession();
    const told = async (name) => {
        await engine.open(urlOf(name));
        const { nodes } = await session.send('Accessibility.getFullAXTree');
        return nodes
            .filter(({ ignored, role }) => !ignored && /^(link|image|img)$/.test(role.value))
            .map(({ role, name: said, description }) => [role.value, said.value, description?.value ?? '']);
    };
    const messages = ['Leads to red', 'Go & see the <green> disc', 'A "kite"'];
    const picture = ['image', 'Four shapes', ''];
    const links = (described) =>
        ['Red', 'Green disc', 'A "kite"'].map((label, i) => ['link', label, described ? messages[i] : '']);
    assert.deepEqual(await told('svg-tips-3'), [picture, ...links(true)]);
    assert.deepEqual((await told('svg-links-3')).map(([, said]) => said), ['Four shapes', 'Red', 'Green disc', 'blue']);
    assert.deepEqual((await told('svg-messages-3')).map(([role, said]) => [role, said]), [
        ['image', 'Four shapes'],
        ...links(false).map(([role, said]) => [role, said]),
    ]);
    assert.deepEqual((await told('map-links-3')).map(([, said]) => said), ['Four shapes', 'Red', 'Green disc', 'blue']);
    assert.deepEqual((await told('svg-tips-special')).at(-1), ['image', 'Orange field', 'No link here']);
}

/**
 * How long the page itself is busy when the mouse comes to another of 500 areas. Other work of the machine makes
 * single moves slow, so one in ten does not count.
 */
async function manyAreasReactWithinAFrame(engine) {
    const [moves, frame] = [200, 1000 / 60];
    await engine.open(urlOf('svg-tips-500'));
    const [x, y] = await placeOf(engine, [200, 150]);
    await engine.run(
        'void(window.times=[],addEventListener("pointerover",()=>{const t=performance.now();' +
            'addEventListener("pointerover",()=>{document.body.offsetHeight;' +
            'window.times.push(performance.now()-t)},{once:true})},true))',
    );
    for (let i = 0; i < moves; ++i) {
        await engine.moveTo(x + ((i * 37) % 150), y + ((i * 53) % 100));
    }
    const times = (await engine.run('window.times')).sort((a, b) => a - b);
    assert.ok(times.length > moves / 2);
    const slow = times[Math.floor(times.length * 0.9)];
    const worst = times.at(-1);
    console.log(`        ${engine.name}: ${slow.toFixed(1)} ms, ${worst.toFixed(1)} ms at the slowest of ${times.length}`);
    assert.ok(slow < frame);
}

async function checkChromiumAlone(engine) {
    await check('axe finds nothing', () => does.axeFindsNothing(engine, shown));
    await engine.resize(320, 640);
    await check('axe finds nothing in a narrow window', () => does.axeFindsNothing(engine, shownOtherwise));
    await check('nothing is wider than a narrow window', () => nothingIsWiderThanTheWindow(engine));
    await visitor(engine)('svg-tips-3', 'tips are in a narrow window', does.tipsAreInTheWindow);
    await check('fingers show messages and follow links', () => fingersShowMessagesAndFollowLinks(engine));
    await check('all messages are there without a mouse', () => allMessagesAreThereWithoutAMouse(engine));
    await engine.resize(...windowSize);
    const session = await engine.page.createCDPSession();
    for (const feature of [
        { name: 'prefers-color-scheme', value: 'dark' },
        { name: 'forced-colors', value: 'active' },
    ]) {
        await session.send('Emulation.setEmulatedMedia', { features: [feature] });
        await check(`axe finds nothing with ${feature.name} ${feature.value}`, () =>
            does.axeFindsNothing(engine, shownOtherwise),
        );
    }
    await visitor(engine)('svg-links-3', 'hover and focus are seen in forced colours', does.hoverAndFocusAreSeen);
    await session.send('Emulation.setEmulatedMedia', { features: [] });
    await check('without script all messages are there', () => allMessagesAreThereWithoutScript(engine));
    await check('links and messages are there on paper', () => linksAndMessagesAreThereOnPaper(engine));
    await check('screen readers are told of areas and messages', () => screenReadersAreTold(engine));
    await visitor(engine)('svg-links-3', 'shapes outlive their picture', does.shapesOutliveTheirPicture);
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

async function checkInChromium(engine) {
    await checkEngine(engine);
    await checkChromiumAlone(engine);
    await checkZoomed(engine);
}

async function checkInOther(engine) {
    await checkEngine(engine);
    await checkZoomed(engine);
}

const chromium = () => startChromium('/usr/bin/chromium');
const firefox = () => startFirefox('/usr/bin/firefox-esr');

does.writePolicyPages();
await Promise.all([withEngine(chromium, checkInChromium), withEngine(firefox, checkInOther)]);
// A browser with a window of its own takes keys only while that has the focus.
if (!isShort) {
    await withEngine(startWebKit, checkInOther);
    // A time, so nothing for a machine that has other work.
    for (const start of [chromium, firefox, startWebKit]) {
        await withEngine(start, (engine) =>
            check(`${engine.name}: 500 areas react within a frame`, () => manyAreasReactWithinAFrame(engine)),
        );
    }
}
tellOutcome("Pages for today's browsers");
