// The built site in a browser, opened as files. Prints how many checks passed and failed.
// Usage: node site.mjs SITE NAMES: the site's folder, a file of public names that the search must find.
import { mkdirSync, mkdtempSync, readFileSync, rmSync, statSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { Browser } from './browser.mjs';

const site = pathToFileURL(resolve(process.argv[2])).href + '/';
const names = readFileSync(process.argv[3], 'utf8').trim().split('\n');
const shots = join(process.argv[2], 'shots');
const kFirstView = 200 * 1000;
const kSearch = ['lunr.min.js', 'names.js', 'guides.js'];

const profile = mkdtempSync(join(tmpdir(), 'wrt-site-'));
const browser = await Browser.start(profile);
let passed = 0, failed = 0;
async function check(what, work) {
  let problem;
  try {
    problem = await work();
  } catch (error) {
    problem = error.message;
  }
  if (!problem) problem = browser.problems.splice(0).join('; ');
  const foreign = browser.requests.filter((url) => !url.startsWith(site) && !url.startsWith('data:') && url !== 'about:blank');
  if (!problem && foreign.length) problem = `asked for ${foreign}`;
  problem ? ++failed : ++passed;
  if (problem) console.log(`FAILED ${what}: ${problem}`);
}
const page = (address) => site + address;
const isAt = (end) => browser.until(`decodeURI(location.href).endsWith(${JSON.stringify(end)}) && document.readyState === 'complete'`);
async function search(text) {
  await browser.key('/', '/');
  await browser.type(text);
  await browser.until(`!document.getElementById('found').hidden`);
}

mkdirSync(shots, { recursive: true });
await browser.look(1280, 900, false);

// What is typed from the start page, and where Enter on the first that is found leads.
for (const [text, end] of [
  ['MessageDialog.ShowAsync', 'api/Windows.UI.Popups/IMessageDialog.html#showAsyncWithError:'],
  ['Uri.AbsoluteCanonicalUri',
    'api/Windows.Foundation/IUriRuntimeClassWithAbsoluteCanonicalUri.html#getAbsoluteCanonicalUriWithError:'],
  ['Windows.Foundation.Uri', 'api/Windows.Foundation/Uri.html'],
  ['wrtimessagedialogb', 'api/Windows.UI.Popups/IMessageDialog.html'],
  ['setTitleWithValue:error: MessageDialog', 'api/Windows.UI.Popups/IMessageDialog.html#setTitleWithValue:error:'],
  ['WRTAsyncStatusCompleted', 'api/Windows.Foundation/AsyncStatus.html#WRTAsyncStatusCompleted'],
  ['bridgeTransfer: WRTUnknownBridge', 'headers/WRTUnknownBridge.html#bridgeTransfer:'],
  ['WRTAwait', 'headers/WRTWaiting.html'],
])
  await check(`search for ${text}`, async () => {
    await browser.open(page('index.html'));
    await search(text);
    if (text === 'MessageDialog.ShowAsync') await browser.shoot(join(shots, 'search.png'));
    await browser.key('Enter');
    await isAt(end);
    if (end.includes('#') && !end.startsWith('headers')) await browser.until(`document.querySelector(':target') !== null`);
  });

await check('a search without a result', async () => {
  await browser.open(page('api/Windows.UI.Popups/MessageDialog.html'));
  await search('noSuchNameAtAll');
  await browser.until(`document.querySelector('#found .none') !== null`);
  await browser.key('Escape');
  await browser.until(`document.getElementById('found').hidden`);
});

await check('the second that is found, by the arrow keys', async () => {
  await browser.open(page('docs/architecture.html'));
  await search('IMessageDialog');
  const second = await browser.value(`document.querySelectorAll('#found a')[1].href`);
  await browser.key('ArrowDown');
  await browser.key('Enter');
  await browser.until(`location.href === ${JSON.stringify(second)}`);
});

await check('a link to what a method gives', async () => {
  await browser.open(page('api/Windows.UI.Popups/IMessageDialog.html'));
  await browser.value(`{
    const link = [...document.querySelectorAll('a')].find((a) => a.textContent.startsWith('WRTIAsyncOperation__1'));
    setTimeout(() => link.click());
  }`);
  await browser.until(`document.querySelector('h1')?.textContent.startsWith('IAsyncOperation<IUICommand>')`);
});

await check(`${names.length} names`, async () => {
  await browser.open(page('index.html'));
  const missing = await browser.value(`(async () => {
    const missing = [];
    for (const name of ${JSON.stringify(names)}) {
      const found = await wrtFind(name);
      if (!found.some(([objc, winrt, , address]) => objc === name || winrt === name || address.startsWith('/headers/')))
        missing.push(name);
    }
    return missing;
  })()`);
  return missing.length ? `not found: ${missing}` : names.length < 300 ? 'too few names' : '';
});

const pictured = [['index.html', 'start.png', false], ['api/Windows.UI.Xaml/UIElement.html', 'class.png', true],
  ['docs/architecture.html', 'guide.png', false]];
for (const [address, picture, isDark] of pictured)
  await check(`${address}: first view, narrow, dark`, async () => {
    await browser.look(360, 740, isDark);
    await browser.open(page(address));
    const width = await browser.value('document.scrollingElement.scrollWidth');
    const size = browser.requests.reduce((sum, url) => sum + statSync(fileURLToPath(url)).size, 0);
    await browser.shoot(join(shots, 'narrow-' + picture));
    await browser.look(1280, 900, isDark);
    await browser.shoot(join(shots, picture));
    const back = await browser.value('getComputedStyle(document.body).backgroundColor');
    const isBright = back.match(/\d+/g).every((part) => part > 127);
    return browser.requests.some((url) => kSearch.some((name) => url.endsWith(name))) ? 'loads the search at once'
      : size > kFirstView ? `${size} bytes` : width > 360 ? `${width} pixels wide in 360`
        : isBright === isDark ? `the back is ${back}`
          : await browser.value(`document.querySelector('#side [aria-current]') === null`) ? 'the menu does not show it' : '';
  });

await browser.stop();
rmSync(profile, { recursive: true, force: true, maxRetries: 20, retryDelay: 100 });
console.log(`site: ${passed} checks in the browser passed, ${failed} failed`);
process.exit(failed ? 1 : 0);
