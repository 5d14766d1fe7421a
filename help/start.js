// start.htm: every opening of the help comes through here as start.htm?url=PAGE, with PAGE
// appended as it was typed. Only a page of this folder is opened, and with replace, so that
// Back never lands on start.htm. Works the same from disk and from a plain web server.
(function () {
  "use strict";

  function target() {
    var query = location.search;
    var at = query.indexOf("url=");
    if (at < 0) return "index.htm";
    // A "#" belongs to the page (an anchor, or part of the search words).
    var page = wavforgeQuery.decode(query.substring(at + 4) + location.hash);
    if (page === "") return "index.htm";

    // The online help is served statically: its search runs in search.htm, not search.php.
    var search = /^search\.(php|htm)(\?([\s\S]*))?$/i.exec(page);
    if (search) {
      var words = /^s=([\s\S]*)$/.exec(search[3] || "");
      return words ? "search.htm?s=" + encodeURIComponent(words[1]) : "search.htm";
    }

    // A plain page name of this folder, with an optional query or anchor: nothing that could
    // leave the folder or name another scheme.
    var plain = /^([A-Za-z0-9_][A-Za-z0-9_.-]*\.html?)([?#][\s\S]*)?$/.exec(page);
    if (!plain || page.indexOf("//") >= 0 || page.indexOf("\\") >= 0 ||
        page.indexOf("..") >= 0 || plain[1].toLowerCase() === "start.htm") {
      return "index.htm";
    }
    return page;
  }

  location.replace(target());
})();
