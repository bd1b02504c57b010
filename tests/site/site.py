"""The built site in a browser, opened as files. Prints how many checks passed and failed.

Usage: site.py SITE NAMES: the site's folder, a file of public names that the search must find."""
import json
import sys
from pathlib import Path
from urllib.parse import unquote, urlparse

from selenium import webdriver
from selenium.common.exceptions import WebDriverException
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

folder = Path(sys.argv[1]).resolve()
site = folder.as_uri() + '/'
names = Path(sys.argv[2]).read_text(encoding='utf-8').splitlines()
shots = folder / 'shots'
FIRST_VIEW = 200 * 1000
SEARCH = ('lunr.min.js', 'names.js', 'guides.js')

options = webdriver.ChromeOptions()
for argument in ('--headless=new', '--no-sandbox', '--disable-gpu', '--no-first-run', '--disable-background-networking'):
    options.add_argument(argument)
options.set_capability('goog:loggingPrefs', {'browser': 'ALL', 'performance': 'ALL'})
browser = webdriver.Chrome(service=Service('/usr/bin/chromedriver'), options=options)
browser.set_script_timeout(120)
passed = failed = 0


def requests():
    """What was asked for since the last call."""
    messages = [json.loads(entry['message'])['message'] for entry in browser.get_log('performance')]
    return [each['params']['request']['url'] for each in messages if each['method'] == 'Network.requestWillBeSent']


def check(what, address, work):
    """Opens a page and does `work` there, which is given what the page asked for and says what is wrong, or nothing."""
    global passed, failed
    asked = []
    try:
        browser.get('about:blank')  # so that a change of the part alone loads too
        requests()
        browser.get(site + address)
        asked = requests()
        problem = work(asked)
        asked += requests()
    except WebDriverException as error:
        problem = str(error)
    errors = '; '.join(entry['message'] for entry in browser.get_log('browser') if entry['level'] == 'SEVERE')
    foreign = [url for url in asked if not url.startswith((site, 'data:', 'about:blank'))]
    if problem or errors or foreign:
        failed += 1
        print(f'FAILED {what}:', problem or errors or f'asked for {foreign}')
    else:
        passed += 1


def value(expression):
    return browser.execute_script('return ' + expression)


def until(expression):
    """Waits, 10 seconds at most; while a page is being left there is no answer."""
    wait = WebDriverWait(browser, 10, 0.02, ignored_exceptions=[WebDriverException])
    wait.until(lambda _: value(expression), f'not so within 10 s: {expression}')


def keys(*texts):
    ActionChains(browser).send_keys(*texts).perform()


def search(text):
    keys('/')
    keys(text)
    until("!document.getElementById('found').hidden")


def look(width, height, is_dark):
    """How large the window is, and whether the system's theme is dark."""
    browser.execute_cdp_cmd('Emulation.setDeviceMetricsOverride',
                            {'width': width, 'height': height, 'deviceScaleFactor': 1, 'mobile': False})
    theme = {'name': 'prefers-color-scheme', 'value': 'dark' if is_dark else 'light'}
    browser.execute_cdp_cmd('Emulation.setEmulatedMedia', {'features': [theme]})


def finds(text, end):
    def work(_):
        search(text)
        if text == 'MessageDialog.ShowAsync':
            browser.save_screenshot(str(shots / 'search.png'))
        keys(Keys.ENTER)
        until(f"decodeURI(location.href).endsWith({json.dumps(end)}) && document.readyState === 'complete'")
        if '#' in end and not end.startswith('headers'):
            until("document.querySelector(':target') !== null")
    check(f'search for {text}', 'index.html', work)


def finds_nothing(_):
    search('noSuchNameAtAll')
    until("document.querySelector('#found .none') !== null")
    keys(Keys.ESCAPE)
    until("document.getElementById('found').hidden")


def goes_to_the_second(_):
    search('IMessageDialog')
    second = value("document.querySelectorAll('#found a')[1].href")
    keys(Keys.ARROW_DOWN, Keys.ENTER)
    until(f'location.href === {json.dumps(second)}')


def follows_a_link(_):
    browser.find_element('partial link text', 'WRTIAsyncOperation__1').click()
    until("document.querySelector('h1')?.textContent.startsWith('IAsyncOperation<IUICommand>')")


def has_names(_):
    missing = browser.execute_script('''return (async (names) => {
      const missing = [];
      for (const name of names) {
        const found = await wrtFind(name);
        if (!found.some(([objc, winrt, , address]) => objc === name || winrt === name || address.startsWith('/headers/')))
          missing.push(name);
      }
      return missing;
    })(arguments[0])''', names)
    return f'not found: {missing}' if missing else 'too few names' if len(names) < 300 else ''


def has_a_first_view(address, picture, is_dark):
    def work(asked):
        width = value('document.scrollingElement.scrollWidth')
        size = sum(Path(unquote(urlparse(url).path)).stat().st_size for url in asked if url.startswith(site))
        browser.save_screenshot(str(shots / f'narrow-{picture}'))
        look(1280, 900, is_dark)
        browser.save_screenshot(str(shots / picture))
        is_bright = value(r'getComputedStyle(document.body).backgroundColor.match(/\d+/g).every((part) => part > 127)')
        wrong = {'loads the search at once': any(url.endswith(SEARCH) for url in asked),
                 f'{size} bytes': not 0 < size <= FIRST_VIEW, f'{width} pixels wide in 360': width > 360,
                 'the back is of the other theme': is_bright == is_dark,
                 'the menu does not show it': value("document.querySelector('#side [aria-current]') === null")}
        return ', '.join(text for text, is_so in wrong.items() if is_so)
    look(360, 740, is_dark)
    check(f'{address}: first view, narrow, dark', address, work)


shots.mkdir(exist_ok=True)
look(1280, 900, False)
# What is typed from the start page, and where Enter on the first that is found leads.
finds('MessageDialog.ShowAsync', 'api/Windows.UI.Popups/IMessageDialog.html#showAsyncWithError:')
finds('Uri.AbsoluteCanonicalUri',
      'api/Windows.Foundation/IUriRuntimeClassWithAbsoluteCanonicalUri.html#getAbsoluteCanonicalUriWithError:')
finds('Windows.Foundation.Uri', 'api/Windows.Foundation/Uri.html')
finds('wrtimessagedialogb', 'api/Windows.UI.Popups/IMessageDialog.html')
finds('setTitleWithValue:error: MessageDialog', 'api/Windows.UI.Popups/IMessageDialog.html#setTitleWithValue:error:')
finds('WRTAsyncStatusCompleted', 'api/Windows.Foundation/AsyncStatus.html#WRTAsyncStatusCompleted')
finds('bridgeTransfer: WRTUnknownBridge', 'headers/WRTUnknownBridge.html#bridgeTransfer:')
finds('WRTAwait', 'headers/WRTWaiting.html')
check('a search without a result', 'api/Windows.UI.Popups/MessageDialog.html', finds_nothing)
check('the second that is found, by the arrow keys', 'docs/architecture.html', goes_to_the_second)
check('a link to what a method gives', 'api/Windows.UI.Popups/IMessageDialog.html', follows_a_link)
check(f'{len(names)} names', 'index.html', has_names)
has_a_first_view('index.html', 'start.png', False)
has_a_first_view('api/Windows.UI.Xaml/UIElement.html', 'class.png', True)
has_a_first_view('docs/architecture.html', 'guide.png', False)

browser.quit()
print(f'site: {passed} checks in the browser passed, {failed} failed')
sys.exit(failed > 0)
