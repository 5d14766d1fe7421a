// The search of search.htm: looks up the words of ?s= in the pages listed by search-index.js,
// which the build makes from this folder's pages. The page's own texts come from its data-*
// attributes, so both languages share this file.
(function () {
  "use strict";

  // Lower case without accents, one character for one, so positions in the folded text are
  // positions in the original ("Qualitat" finds "Qualität").
  function fold(text) {
    var out = "";
    for (var i = 0; i < text.length; i++) {
      var c = text.charAt(i);
      var base = c.normalize ? c.normalize("NFD").charAt(0) : c;
      out += base.toLowerCase().charAt(0);
    }
    return out;
  }

  function wordsOf(text) {
    return fold(text).split(/\s+/).filter(function (word) {
      return word !== "";
    });
  }

  function countOf(haystack, word) {
    var count = 0;
    for (var at = haystack.indexOf(word); at >= 0; at = haystack.indexOf(word, at + word.length)) {
      count++;
    }
    return count;
  }

  // Pages holding every word, the most mentions first; a word in the title counts most.
  function find(words) {
    var found = [];
    (window.helpPages || []).forEach(function (page) {
      var title = fold(page.title);
      var text = fold(page.text);
      var score = 0;
      for (var i = 0; i < words.length; i++) {
        var inTitle = countOf(title, words[i]);
        var inText = countOf(text, words[i]);
        if (inTitle + inText === 0) return;
        score += 10 * inTitle + inText;
      }
      found.push({ page: page, score: score, folded: text });
    });
    found.sort(function (a, b) {
      return b.score - a.score;
    });
    return found;
  }

  // A piece of the page's text around the first word, the words marked.
  function snippet(hit, words, into) {
    var text = hit.page.text;
    var at = hit.folded.indexOf(words[0]);
    if (at < 0) at = 0;
    var from = Math.max(0, at - 70);
    var to = Math.min(text.length, at + 170);
    if (from > 0) from = text.indexOf(" ", from) + 1;
    if (to < text.length) {
      var end = text.lastIndexOf(" ", to);
      if (end > at) to = end;
    }
    var piece = text.substring(from, to);
    var folded = hit.folded.substring(from, to);

    var marks = [];
    words.forEach(function (word) {
      for (var i = folded.indexOf(word); i >= 0; i = folded.indexOf(word, i + word.length)) {
        marks.push([i, i + word.length]);
      }
    });
    marks.sort(function (a, b) {
      return a[0] - b[0];
    });

    if (from > 0) into.appendChild(document.createTextNode("… "));
    var done = 0;
    marks.forEach(function (mark) {
      if (mark[0] < done) return;
      into.appendChild(document.createTextNode(piece.substring(done, mark[0])));
      var marked = document.createElement("mark");
      marked.textContent = piece.substring(mark[0], mark[1]);
      into.appendChild(marked);
      done = mark[1];
    });
    into.appendChild(document.createTextNode(piece.substring(done)));
    if (to < text.length) into.appendChild(document.createTextNode(" …"));
  }

  function show(query) {
    var summary = document.getElementById("search-summary");
    var list = document.getElementById("search-results");
    var words = wordsOf(query);
    list.textContent = "";
    if (words.length === 0) {
      summary.textContent = summary.getAttribute("data-empty");
      return;
    }
    var hits = find(words);
    if (hits.length === 0) {
      summary.textContent = summary.getAttribute("data-none");
    } else if (hits.length === 1) {
      summary.textContent = summary.getAttribute("data-one");
    } else {
      summary.textContent = summary.getAttribute("data-many").replace("{n}", String(hits.length));
    }
    hits.forEach(function (hit) {
      var item = document.createElement("li");
      var link = document.createElement("a");
      link.href = hit.page.page;
      link.textContent = hit.page.title;
      item.appendChild(link);
      var text = document.createElement("p");
      snippet(hit, words, text);
      item.appendChild(text);
      list.appendChild(item);
    });
  }

  document.addEventListener("DOMContentLoaded", function () {
    var field = document.getElementById("search-words");
    var match = /(?:^|&)s=([^&]*)/.exec(location.search.substring(1));
    var query = match ? wavforgeQuery.decode(match[1]) : "";
    field.value = query;
    show(query);
    document.getElementById("search-form").addEventListener("submit", function (event) {
      event.preventDefault();
      // A new address per search, so Back returns to the previous one.
      location.href = "search.htm?s=" + encodeURIComponent(field.value);
    });
  });
})();
