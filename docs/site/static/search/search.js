// The search. Its parts are scripts, not requests, so that it works where the site is opened from a
// folder; they are loaded when somebody wants to search.
(function () {
  'use strict';
  var root = new URL('..', document.currentScript.src).href;
  var input = document.getElementById('search');
  var list = document.getElementById('found');
  var entries = []; // what can be found: address, name, WinRT's name, what it belongs to
  var index, loading, chosen = -1;

  function simple(name) { return name.replace(/<.*/, '').split('.').pop(); }
  // The words of a name: setTitleWithValue: is set, title, with, value.
  function words(name) {
    return (name.match(/[A-Z]+(?![a-z])|[A-Z]?[a-z]+|\d+/g) || []).map(function (word) { return word.toLowerCase(); });
  }
  function pieces(text) {
    return text.toLowerCase().split(/[\s.,<>()\[\]*\/]+/).filter(Boolean);
  }
  function add(address, name, winrt, owner, exact, of) {
    entries.push({ id: String(entries.length), address: address, name: name, winrt: winrt, owner: owner,
      exact: exact.concat(exact.map(function (e) { return e.replace(/:/g, ''); })).map(function (e) { return e.toLowerCase(); }),
      parts: words(name), of: of });
  }

  window.wrtNames = function (types) {
    var spaces = {};
    types.forEach(function (type) {
      var address = type[0], objc = type[1], winrt = type[2], owners = pieces(type[3]), parts = type[4];
      var own = pieces(winrt);
      add(address, objc, winrt, '', [objc, simple(winrt)], own.concat(owners));
      spaces[address.split('/')[2]] = 1;
      for (var i = 0; i < parts.length; i += 2)
        add(address + '#' + parts[i], parts[i], parts[i + 1], simple(winrt) || objc, [parts[i], parts[i + 1]],
          own.slice(-1).concat(owners, simple(winrt).toLowerCase(), objc.toLowerCase()));
    });
    Object.keys(spaces).forEach(function (name) {
      if (!/\.html$/.test(name)) add('/api/' + name + '.html', name, 'namespace', '', [name], pieces(name));
    });
  };
  window.wrtGuides = function (pages) {
    pages.forEach(function (page) {
      add(page[0], page[1], /^\/headers/.test(page[0]) ? 'header' : 'guide', '', pieces(page[1]).concat(page[2]),
        words(page[3].join(' ')));
    });
  };

  function script(name) {
    return new Promise(function (done, failed) {
      var element = document.createElement('script');
      element.src = root + 'search/' + name;
      element.onload = done;
      element.onerror = failed;
      document.head.append(element);
    });
  }
  function load() {
    loading = loading || Promise.all(['lunr.min.js', 'names.js', 'guides.js'].map(script)).then(function () {
      var builder = new lunr.Builder();
      builder.ref('id');
      ['exact', 'parts', 'of'].forEach(function (field) { builder.field(field); });
      entries.forEach(function (entry) { builder.add(entry); });
      index = builder.build();
    });
    return loading;
  }

  // Every word must begin something of the entry; of a dotted name the last two parts count.
  function find(text) {
    var asked = [];
    text.toLowerCase().split(/[\s,<>()\[\]*]+/).filter(Boolean).forEach(function (word) {
      asked = asked.concat(word.split('.').filter(Boolean).slice(-2));
    });
    if (!asked.length) return [];
    return index.query(function (query) {
      asked.forEach(function (word) {
        query.term(word, { presence: lunr.Query.presence.REQUIRED, wildcard: lunr.Query.wildcard.TRAILING });
        query.term(word, { fields: ['exact'], boost: 20 });
      });
    }).slice(0, 40).map(function (hit) { return entries[hit.ref]; });
  }

  function choose(which) {
    var items = list.children;
    if (items[chosen]) items[chosen].removeAttribute('aria-selected');
    chosen = items.length ? (which + items.length) % items.length : -1;
    if (chosen >= 0) {
      items[chosen].setAttribute('aria-selected', 'true');
      items[chosen].scrollIntoView({ block: 'nearest' });
    }
  }
  function span(kind, text) {
    var element = document.createElement('span');
    element.className = kind;
    element.textContent = text;
    return element;
  }
  function close() {
    list.hidden = true;
    input.setAttribute('aria-expanded', 'false');
  }
  function show() {
    if (!input.value.trim()) return close();
    var found = find(input.value);
    list.replaceChildren.apply(list, found.map(function (entry) {
      var item = document.createElement('li');
      var link = document.createElement('a');
      item.setAttribute('role', 'option');
      link.href = root + entry.address.slice(1);
      link.tabIndex = -1;
      link.append(span('name', entry.name), span('winrt', (entry.owner ? entry.owner + (entry.winrt ? '.' : '') : '') + entry.winrt));
      item.append(link);
      return item;
    }));
    if (!found.length) list.append(span('none', 'Nothing has that name.'));
    list.hidden = false;
    input.setAttribute('aria-expanded', 'true');
    choose(0);
  }
  input.addEventListener('focus', load);
  input.addEventListener('input', function () { load().then(show); });
  input.addEventListener('keydown', function (event) {
    if (event.key === 'ArrowDown' || event.key === 'ArrowUp') choose(chosen + (event.key === 'ArrowDown' ? 1 : -1));
    else if (event.key === 'Enter' && list.children[chosen]) {
      var link = list.children[chosen].querySelector('a');
      if (link) location.href = link.href;
      close();
    } else if (event.key === 'Escape') { close(); input.blur(); }
    else return;
    event.preventDefault();
  });
  document.addEventListener('keydown', function (event) {
    var isTyping = /^(INPUT|TEXTAREA|SELECT)$/.test(event.target.tagName);
    if ((event.key === '/' && !isTyping) || (event.key === 'k' && (event.ctrlKey || event.metaKey))) {
      event.preventDefault();
      input.focus();
      input.select();
    }
  });
  document.addEventListener('click', function (event) { if (!event.target.closest('.search')) close(); });

  // For tests: the names that a search shows.
  window.wrtFind = function (text) {
    return load().then(function () {
      return find(text).map(function (entry) { return [entry.name, entry.winrt, entry.owner, entry.address]; });
    });
  };
})();
