// Reads the loaded page for the program, in the program's script world, and keeps the body's
// elements there so that later changes and clicks name them by their index. Called with the
// number of the snapshot.
(function (generation) {
  'use strict';
  const body = document.body;
  const all = body ? Array.from(body.getElementsByTagName('*')) : [];
  const state = window.__wavforge;
  if (state) {
    state.generation = generation;
    state.elements = all;
    state.handled = [];
  }
  const describe = (element) => ({
    tagName: element.tagName.toUpperCase(),
    name: typeof element.name === 'string' ? element.name : '',
    type: typeof element.type === 'string' ? element.type.toLowerCase() : '',
    checked: element.checked === true,
    disabled: element.disabled === true,
    attributes: Array.from(element.attributes, (attribute) => [attribute.name, attribute.value]),
    innerHTML: element.id ? element.innerHTML : '',
  });
  return {
    URL: document.URL,
    title: document.title,
    bodyInnerText: body ? body.innerText : '',
    bodyInnerHTML: body ? body.innerHTML : '',
    metas: Array.from(document.getElementsByTagName('meta'), describe),
    all: all.map(describe),
    activeElementIndex: all.indexOf(document.activeElement),
    focused: document.hasFocus(),
  };
})
