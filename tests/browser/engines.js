// Chromium, Firefox and WebKitGTK behind one face: each opens a page and has a real mouse and keys for it.

import { spawn } from 'node:child_process';
import { setTimeout as sleep } from 'node:timers/promises';
import puppeteer from 'puppeteer-core';

const webKitBrowser = '/usr/lib/x86_64-linux-gnu/webkit2gtk-4.1/MiniBrowser';
const webKitPort = 4456;

/** Without a screen, browsers say that there is no mouse, and pages believe it. */
const firefoxMouse = { 'ui.primaryPointerCapabilities': 6, 'ui.allPointerCapabilities': 6 };
const chromiumFlags = ['--blink-settings=primaryHoverType=2,availableHoverTypes=2', '--disable-gpu', '--no-first-run'];

class PuppeteerEngine {
    constructor(name, browser, page) {
        Object.assign(this, { name, browser, page, errors: [] });
        page.on('pageerror', (error) => this.errors.push(error.message));
        page.on('console', (line) => line.type() === 'error' && this.errors.push(line.text()));
    }

    static async start(name, options) {
        const browser = await puppeteer.launch(options);
        // The tab that Firefox opens with never has the focus.
        return new PuppeteerEngine(name, browser, await browser.newPage());
    }

    async resize(width, height, scale = 1) {
        await this.page.setViewport({ width, height, deviceScaleFactor: scale });
    }

    open = (url) => this.page.goto(url);
    run = (source) => this.page.evaluate(source);
    moveTo = (x, y) => this.page.mouse.move(x, y);
    click = (x, y) => this.page.mouse.click(x, y);
    press = (key) => this.page.keyboard.press(key);
    close = () => this.browser.close();
}

/** Spoken to over WebDriver, which is all that it speaks. It has a window and needs a screen for it. */
class WebKitEngine {
    name = 'WebKitGTK';
    errors = [];

    async start() {
        this.driver = spawn('WebKitWebDriver', ['-p', String(webKitPort)], { stdio: 'ignore' });
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
        const answer = await fetch(`http://127.0.0.1:${webKitPort}${path}`, {
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
    to = (x, y) => ({ type: 'pointerMove', duration: 0, origin: 'viewport', x: Math.round(x), y: Math.round(y) });

    resize = (width, height) => this.ask('POST', `${this.session}/window/rect`, { width, height });
    open = (url) => this.ask('POST', `${this.session}/url`, { url });
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
    return PuppeteerEngine.start('Chromium', { browser: 'chrome', executablePath, args });
}

export function startFirefox(executablePath) {
    return PuppeteerEngine.start('Firefox', {
        browser: 'firefox',
        executablePath,
        extraPrefsFirefox: firefoxMouse,
    });
}

export function startWebKit() {
    return new WebKitEngine().start();
}
