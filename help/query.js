// What start.js and search.js share: reading a page's query as it was typed.
var wavforgeQuery = (function () {
  "use strict";

  // %XX runs are decoded where they can be; a stray "%" (typed "100%") stays as it is.
  function decode(text) {
    return text.replace(/(%[0-9A-Fa-f]{2})+/g, function (run) {
      try {
        return decodeURIComponent(run);
      } catch (e) {
        return run;
      }
    });
  }

  return { decode: decode };
})();
