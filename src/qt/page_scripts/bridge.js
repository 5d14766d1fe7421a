// The program's side of a page, in a script world of its own that page script cannot see. It
// holds the body's elements of the last snapshot, reports clicks on those the program handles
// and puts back what the program changed. Follows qwebchannel.js in the same script.
(function () {
  'use strict';
  const state = {generation: -1, elements: [], handled: [], menuCancelled: false};
  let browser = null;
  const waiting = [];
  new QWebChannel(qt.webChannelTransport, (channel) => {
    browser = channel.objects.browser;
    waiting.splice(0).forEach((send) => send());
  });

  function report(generation, index, element) {
    const send = () => browser.clicked(generation, index, element.checked === true);
    if (browser) send(); else waiting.push(send);
  }

  window.addEventListener('contextmenu', (event) => {
    if (state.menuCancelled) event.preventDefault();
  }, true);

  state.apply = (generation, changes) => {
    if (generation !== state.generation) return;
    if ('menuCancelled' in changes) state.menuCancelled = changes.menuCancelled;
    if (changes.focus) window.focus();
    for (const change of changes.elements || []) {
      const element = state.elements[change.index];
      if (!element) continue;
      for (const [name, value] of change.attributes || []) element.setAttribute(name, value);
      if ('checked' in change) element.checked = change.checked;
      if ('disabled' in change) element.disabled = change.disabled;
      if (change.click && !state.handled[change.index]) {
        state.handled[change.index] = true;
        element.addEventListener('click', () => report(generation, change.index, element));
      }
    }
  };
  window.__wavforge = state;
})();
