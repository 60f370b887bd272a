// Chromium, Firefox and WebKitGTK behind one face: each opens a page and has a real mouse and keys for it.

import { execFileSync, spawn } from 'node:child_process';
import { once } from 'node:events';
import { mkdirSync, mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { createServer } from 'node:net';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import puppeteer from 'puppeteer-core';

const webKitBrowser = '/usr/lib/x86_64-linux-gnu/webkit2gtk-4.1/MiniBrowser';

/** Without a screen, browsers say that there is no mouse, and pages believe it. */
const firefoxMouse = { 'ui.primaryPointerCapabilities': 6, 'ui.allPointerCapabilities': 6 };
const chromiumFlags = ['--blink-settings=primaryHoverType=2,availableHoverTypes=2', '--disable-gpu', '--no-first-run'];

class PuppeteerEngine {
    errors = [];
    zoom = 1;

    constructor(name, options) {
        Object.assign(this, { name, options });
    }

    async start() {
        this.browser = await puppeteer.launch(this.options);
        // The tab that Firefox opens with never has the focus.
        this.page = await this.browser.newPage();
        this.page.on('pageerror', (error) => this.errors.push(error.message));
        this.page.on('console', (line) => line.type() === 'error' && this.errors.push(line.text()));
        return this;
    }

    seenErrors = async () => this.errors;

    /** Without a scale, the number of pixels is the screen's own, and the zoom's. */
    async resize(width, height, scale) {
        await this.page.setViewport({ width, height, deviceScaleFactor: scale });
    }

    open = (url) => this.page.goto(url);
    run = (source) => this.page.evaluate(source);
    moveTo = (x, y) => this.page.mouse.move(x, y);
    click = (x, y) => this.page.mouse.click(x, y);
    press = (key) => this.page.keyboard.press(key);
    close = () => this.browser.close();
}

/** Its zoom is that of a new profile, since nothing that a page or a driver can reach sets it. */
class ChromiumEngine extends PuppeteerEngine {
    async zoomTo(factor) {
        const stepOfZoom = 1.2;
        await this.close();
        this.profile = mkdtempSync(join(tmpdir(), 'cartolen-chromium-'));
        const level = Math.log(factor) / Math.log(stepOfZoom);
        const preferences = { partition: { default_zoom_level: { x: level } } };
        mkdirSync(join(this.profile, 'Default'));
        writeFileSync(join(this.profile, 'Default', 'Preferences'), JSON.stringify(preferences));
        this.options = { ...this.options, userDataDir: this.profile };
        await this.start();
        this.zoom = factor;
    }

    close = async () => {
        await this.browser.close();
        if (this.profile) {
            rmSync(this.profile, { recursive: true, maxRetries: 5 });
            this.profile = null;
        }
    };
}

/** Its zoom is set in its own window, for each page anew. */
class FirefoxEngine extends PuppeteerEngine {
    /** Not by the page's own setViewport(), which turns the screen too, and Firefox 140 cannot. */
    async resize(width, height, scale) {
        await this.browser.connection.send('browsingContext.setViewport', {
            context: this.page.mainFrame()._id,
            viewport: { width, height },
            devicePixelRatio: scale ?? null,
        });
    }

    async zoomTo(factor) {
        this.zoom = factor;
    }

    open = async (url) => {
        await this.page.goto(url);
        if (this.zoom === 1) {
            return;
        }
        const { connection } = this.browser;
        const { result } = await connection.send('browsingContext.getTree', { 'moz:scope': 'chrome' });
        const [{ context }] = result.contexts;
        const expression = `gBrowser.selectedBrowser.fullZoom = ${this.zoom}`;
        await connection.send('script.evaluate', { expression, target: { context }, awaitPromise: false });
        const [tolerance, zoomPatience] = [0.01, 5000];
        for (const start = Date.now(); Math.abs((await this.run('devicePixelRatio')) - this.zoom) > tolerance; ) {
            if (Date.now() - start > zoomPatience) {
                throw new Error(`Firefox does not zoom to ${this.zoom}`);
            }
        }
    };
}

/** One that nobody listens to, as of now. */
async function freePort() {
    const server = createServer().listen(0, '127.0.0.1');
    await once(server, 'listening');
    const { port } = server.address();
    server.close();
    return port;
}

/** Spoken to over WebDriver, which is all that it speaks. It has a window and needs a screen for it. */
class WebKitEngine {
    name = 'WebKitGTK';
    errors = [];
    zoom = 1;

    async start() {
        this.port = await freePort();
        this.driver = spawn('WebKitWebDriver', ['-p', String(this.port)], { stdio: 'ignore' });
        const options = { binary: webKitBrowser, args: ['--automation'] };
        const capabilities = { alwaysMatch: { 'webkitgtk:browserOptions': options } };
        for (let tries = 0; !this.session; ++tries) {
            try {
                this.session = `/session/${(await this.ask('POST', '/session', { capabilities })).sessionId}`;
            } catch (error) {
                if (tries > 20) {
                    throw error;
                }
                await sleep(250);
            }
        }
        return this;
    }

    async ask(method, path, body) {
        const answer = await fetch(`http://127.0.0.1:${this.port}${path}`, {
            method,
            body: body && JSON.stringify(body),
        });
        const { value } = await answer.json();
        if (value?.error) {
            throw new Error(value.message);
        }
        return value;
    }

    act = (action) => this.ask('POST', `${this.session}/actions`, { actions: [action] });
    point = (...actions) =>
        this.act({ type: 'pointer', id: 'mouse', parameters: { pointerType: 'mouse' }, actions });
    /** It takes places as those of a window without a zoom. */
    to(x, y) {
        const [across, down] = [x, y].map((place) => Math.round(place * this.zoom));
        return { type: 'pointerMove', duration: 0, origin: 'viewport', x: across, y: down };
    }


    /** By the keys of its menu: each takes it a fifth further, but never below a half, so 58 % is the least. */
    async zoomTo(factor) {
        const [stepOfZoom, mostDown] = [1.2, -3];
        const steps = Math.max(Math.round(Math.log(factor) / Math.log(stepOfZoom)), mostDown);
        const keys = Array(Math.abs(steps)).fill(steps > 0 ? 'ctrl+plus' : 'ctrl+minus');
        await this.open('about:blank'); // its window takes no keys before it has had a page
        execFileSync('xdotool', ['key', '--delay', '60', 'ctrl+0', ...keys]);
        this.zoom = stepOfZoom ** steps;
    }

    resize = (width, height) => this.ask('POST', `${this.session}/window/rect`, { width, height });
    async open(url) {
        await this.ask('POST', `${this.session}/url`, { url });
        await this.run('void(window.seenErrors=[],addEventListener("error",e=>window.seenErrors.push(e.message)))');
    }

    /** Only those since the page has been read; and none of a page that another has followed. */
    seenErrors = () => this.run('window.seenErrors||[]');

    run = (source) => this.ask('POST', `${this.session}/execute/sync`, { script: `return ${source}`, args: [] });
    moveTo = (x, y) => this.point(this.to(x, y));
    click = (x, y) =>
        this.point(this.to(x, y), { type: 'pointerDown', button: 0 }, { type: 'pointerUp', button: 0 });

    press(key) {
        const value = { Tab: '\uE004', Escape: '\uE00C', Enter: '\uE007' }[key];
        return this.act({ type: 'key', id: 'keys', actions: [{ type: 'keyDown', value }, { type: 'keyUp', value }] });
    }

    async close() {
        await this.ask('DELETE', this.session).catch(() => {});
        this.driver.kill();
    }
}

export function startChromium(executablePath) {
    const args = process.getuid() === 0 ? [...chromiumFlags, '--no-sandbox'] : chromiumFlags;
    return new ChromiumEngine('Chromium', { browser: 'chrome', executablePath, args }).start();
}

export function startFirefox(executablePath) {
    return new FirefoxEngine('Firefox', {
        browser: 'firefox',
        executablePath,
        args: ['--remote-allow-system-access'],
        extraPrefsFirefox: firefoxMouse,
    }).start();
}

export function startWebKit() {
    return new WebKitEngine().start();
}
