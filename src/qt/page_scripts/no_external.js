// Page script gets no external object from this browser.
window.external = null;
