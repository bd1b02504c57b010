// Headless Chromium, driven by the DevTools protocol over a pipe.
import { spawn } from 'node:child_process';
import { writeFileSync } from 'node:fs';

/// A page of a browser. What goes wrong in it comes into `problems`, what it asks for into `requests`.
export class Browser {
  problems = [];
  requests = [];
  #answers = new Map();
  #waiting = [];
  #last = 0;

  static async start(profile) {
    const browser = new Browser();
    browser.process = spawn('chromium', ['--headless=new', '--no-sandbox', '--disable-gpu', '--remote-debugging-pipe',
      '--no-first-run', '--disable-background-networking', `--user-data-dir=${profile}`, 'about:blank'],
    { stdio: ['ignore', 'ignore', 'ignore', 'pipe', 'pipe'] });
    browser.process.on('error', (error) => browser.problems.push(String(error)));
    let rest = '';
    browser.process.stdio[4].setEncoding('utf8').on('data', (data) => {
      const messages = (rest + data).split('\0');
      rest = messages.pop();
      messages.forEach((message) => browser.#receive(JSON.parse(message)));
    });
    const { targetInfos } = await browser.send('Target.getTargets');
    const { targetId } = targetInfos.find(({ type }) => type === 'page');
    browser.session = (await browser.send('Target.attachToTarget', { targetId, flatten: true })).sessionId;
    for (const domain of ['Page', 'Runtime', 'Log', 'Network'])
      await browser.send(`${domain}.enable`);
    return browser;
  }

  send(method, params = {}) {
    const id = ++this.#last;
    this.process.stdio[3].write(JSON.stringify({ id, method, params, sessionId: this.session }) + '\0');
    return new Promise((done, failed) => this.#answers.set(id, { done, failed }));
  }

  #receive({ id, method, params, result, error }) {
    if (id) {
      const { done, failed } = this.#answers.get(id);
      error ? failed(new Error(error.message)) : done(result);
    } else if (method === 'Runtime.exceptionThrown') {
      this.problems.push(params.exceptionDetails.exception?.description ?? params.exceptionDetails.text);
    } else if (method === 'Log.entryAdded' && params.entry.level === 'error') {
      this.problems.push(`${params.entry.text} ${params.entry.url ?? ''}`);
    } else if (method === 'Runtime.consoleAPICalled' && params.type === 'error') {
      this.problems.push(params.args.map(({ value }) => value).join(' '));
    } else if (method === 'Network.requestWillBeSent') {
      this.requests.push(params.request.url);
    } else if (method === 'Page.loadEventFired') {
      this.#waiting.splice(0).forEach((done) => done());
    }
  }

  loaded() { return new Promise((done) => this.#waiting.push(done)); }

  async open(url) {
    this.requests = [];
    const loaded = this.loaded();
    await this.send('Page.navigate', { url: 'about:blank' }); // so that a change of the part alone loads too
    await loaded;
    this.requests = [];
    const again = this.loaded();
    await this.send('Page.navigate', { url });
    await again;
  }

  /// The value of an expression in the page; waits for promises.
  async value(expression) {
    const { result, exceptionDetails } = await this.send('Runtime.evaluate',
      { expression, awaitPromise: true, returnByValue: true });
    if (exceptionDetails) throw new Error(exceptionDetails.exception?.description ?? expression);
    return result.value;
  }

  /// Waits, 10 seconds at most, until the expression is true; while a page is being left there is no answer.
  async until(expression) {
    for (const end = Date.now() + 10000; !(await this.value(expression).catch(() => false));) {
      if (Date.now() > end) throw new Error(`not so within 10 s: ${expression}`);
      await new Promise((done) => setTimeout(done, 20));
    }
  }

  async key(key, text) {
    const code = { Enter: 13, ArrowDown: 40, Escape: 27 }[key];
    await this.send('Input.dispatchKeyEvent', { type: 'keyDown', key, text, windowsVirtualKeyCode: code });
    await this.send('Input.dispatchKeyEvent', { type: 'keyUp', key, windowsVirtualKeyCode: code });
  }

  type(text) { return this.send('Input.insertText', { text }); }

  /// How large the window is, and whether the system's theme is dark.
  async look(width, height, isDark) {
    await this.send('Emulation.setDeviceMetricsOverride', { width, height, deviceScaleFactor: 1, mobile: false });
    await this.send('Emulation.setEmulatedMedia',
      { features: [{ name: 'prefers-color-scheme', value: isDark ? 'dark' : 'light' }] });
  }

  async shoot(file) {
    const { data } = await this.send('Page.captureScreenshot');
    writeFileSync(file, Buffer.from(data, 'base64'));
  }

  async stop() {
    const ended = new Promise((done) => this.process.on('exit', done));
    await this.send('Browser.close');
    await ended;
  }
}
