// Before anything is drawn: the theme that was chosen, else the system's.
(function () {
  var root = document.documentElement;
  function stored(value) {
    try {
      if (value) localStorage.setItem('theme', value);
      return localStorage.getItem('theme');
    } catch (e) {
      return value; // no storage: the choice holds for this page
    }
  }
  var theme = stored();
  if (theme) root.dataset.theme = theme;
  addEventListener('DOMContentLoaded', function () {
    document.getElementById('theme').addEventListener('click', function () {
      var dark = root.dataset.theme ? root.dataset.theme === 'dark' : matchMedia('(prefers-color-scheme: dark)').matches;
      root.dataset.theme = dark ? 'light' : 'dark';
      stored(root.dataset.theme);
    });
    var menu = document.getElementById('menu');
    menu.addEventListener('click', function () {
      menu.setAttribute('aria-expanded', document.body.classList.toggle('menu'));
    });
    var page = location.href.split('#')[0];
    var here = Array.from(document.querySelectorAll('#side a')).find(function (link) { return link.href === page; });
    if (here) {
      here.setAttribute('aria-current', 'page');
      here.scrollIntoView({ block: 'nearest' });
    }
  });
})();
