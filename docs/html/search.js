// The search of the whole text. The first search loads lunr and the text, as scripts, because a page in the file system cannot
// fetch other files. lunr finds the sections; those with the exact words come first, above all those with the words in the
// heading. Headers, examples and the pages for maintainers come last.
"use strict";

const Search = {
  most: 12,
  last: /-example\.html|_8h\.html|^(testing|tour|deliberate|contributing|changelog)\.html/,
  index: null,

  load(name) {
    return new Promise((resolve, reject) => {
      const script = document.createElement("script");
      script.src = name;
      script.onload = resolve;
      script.onerror = reject;
      document.head.append(script);
    });
  },

  async prepare() {
    await Promise.all([Search.load("lunr.min.js"), Search.load("search_text.js")]);
    // A word is letters, digits and "_": "csv" is a word of "measured.csv".
    lunr.tokenizer.separator = /\W+/;
    Search.index = lunr(function () {
      this.ref("number");
      this.field("page", {boost: 4});
      this.field("heading", {boost: 8});
      this.field("text");
      // Every word counts: "not" and "when" matter in these pages.
      this.pipeline.remove(lunr.stopWordFilter);
      searchText.forEach(([page, , heading, text], number) => this.add({number, page, heading, text}));
    });
  },

  // Returns the numbers of the sections that contain every word, or words that begin with the last one.
  find(query) {
    const words = lunr.tokenizer(query).map(String).filter(Boolean);
    const hits = Search.index.query((terms) => {
      words.forEach((word, at) => {
        const needed = words.length > 1 ? lunr.Query.presence.REQUIRED : lunr.Query.presence.OPTIONAL;
        if (at + 1 < words.length) {
          terms.term(word, {presence: needed});
        } else {
          terms.term(word, {boost: 10});
          terms.term(word, {wildcard: lunr.Query.wildcard.TRAILING, usePipeline: false});
        }
      });
    });
    const exact = query.trim().toLowerCase();
    const rank = ({ref, score}) => {
      const [page, address, heading, text] = searchText[ref];
      const title = (heading || page).toLowerCase();
      return score + (`${page} ${heading} ${text}`.toLowerCase().includes(exact) ? 1000 : 0) +
             (title === exact ? 400 : title.includes(exact) ? heading ? 200 : 300 : 0) - (Search.last.test(address) ? 500 : 0);
    };
    const last = words.at(-1);
    return hits.filter(({ref, matchData}) => words.length < 2 || Search.hasWord(searchText[ref], last, matchData))
      .map((hit) => ({ref: hit.ref, rank: rank(hit)})).sort((a, b) => b.rank - a.rank).map(({ref}) => ref);
  },

  // Whether a section has the last word, which lunr cannot require in two forms at once.
  hasWord(section, word, matchData) {
    const stem = lunr.stemmer(new lunr.Token(word)).toString();
    return Object.keys(matchData.metadata).some((term) => term === stem || term.startsWith(word));
  },

  // Returns the text around the first of the words, which are marked.
  excerpt(text, query) {
    const words = [query.trim(), ...query.trim().split(/\s+/)].filter(Boolean);
    const lower = text.toLowerCase();
    const at = words.map((word) => lower.indexOf(word.toLowerCase())).find((found) => found >= 0) ?? 0;
    const begin = at < 50 ? 0 : text.indexOf(" ", at - 50) + 1;
    const part = (begin > 0 ? "… " : "") + text.slice(begin, begin + 160) + (text.length > begin + 160 ? " …" : "");
    const pattern = words.map((word) => word.replace(/[.*+?^${}()|[\]\\]/g, "\\$&")).join("|");
    const line = document.createElement("span");
    part.split(new RegExp(`(${pattern})`, "gi")).forEach((piece, number) => {
      const node = document.createElement(number % 2 ? "mark" : "span");
      node.textContent = piece;
      line.append(node);
    });
    return line;
  },

  show(list, query) {
    list.replaceChildren();
    list.dataset.query = query;
    list.hidden = query.trim() === "";
    if (list.hidden) {
      return;
    }
    const found = /\w/.test(query) ? Search.find(query) : [];
    for (const number of found.slice(0, Search.most)) {
      const [page, address, heading, text] = searchText[number];
      const link = document.createElement("a");
      link.href = address;
      const title = document.createElement("b");
      title.textContent = heading && heading !== page ? `${page}: ${heading}` : page;
      link.append(title, Search.excerpt(text, query));
      list.append(link);
    }
    if (found.length === 0) {
      list.append(Object.assign(document.createElement("p"), {textContent: "Nothing found"}));
    }
  },

  // Moves from the box through the results and back.
  move(box, list, event) {
    if (event.key === "Escape") {
      list.hidden = true;
      box.focus();
    }
    if (event.key !== "ArrowDown" && event.key !== "ArrowUp") {
      return;
    }
    const stops = [box, ...list.querySelectorAll("a")];
    const next = stops.indexOf(document.activeElement) + (event.key === "ArrowDown" ? 1 : -1);
    stops[Math.min(Math.max(next, 0), stops.length - 1)].focus();
    event.preventDefault();
  },

  // Adds the box and the list of results to an element.
  init(parent) {
    const form = document.createElement("form");
    form.className = "search";
    form.role = "search";
    const box = Object.assign(document.createElement("input"),
                              {type: "search", placeholder: "Search", autocomplete: "off", spellcheck: false, maxLength: 200});
    box.setAttribute("aria-label", "Search all pages");
    const list = Object.assign(document.createElement("div"), {className: "results", hidden: true});
    list.setAttribute("aria-live", "polite");
    let ready;
    const search = async () => {
      ready ??= Search.prepare();
      await ready;
      Search.show(list, box.value);
    };
    box.addEventListener("input", search);
    box.addEventListener("focus", search);
    form.addEventListener("keydown", (event) => Search.move(box, list, event));
    form.addEventListener("submit", (event) => {
      event.preventDefault();
      list.querySelector("a")?.click();
    });
    document.addEventListener("click", (event) => {
      list.hidden ||= !form.contains(event.target);
    });
    document.addEventListener("keydown", (event) => {
      if (event.key === "/" && !/^(INPUT|TEXTAREA)$/.test(event.target.tagName)) {
        event.preventDefault();
        box.focus();
      }
    });
    form.append(box, list);
    parent.append(form);
  },
};
