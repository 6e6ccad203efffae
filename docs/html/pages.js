// The bar at the top of each page, with the search and the switch for dark and light; the copy buttons; the contents.
"use strict";

document.addEventListener("DOMContentLoaded", () => {
  const bar = document.createElement("div");
  bar.id = "page-bar";
  document.getElementById("titlearea").append(bar);
  if (typeof Search !== "undefined") {
    Search.init(bar);
  }
  if (typeof DoxygenAwesomeDarkModeToggle !== "undefined") {
    const toggle = document.createElement("doxygen-awesome-dark-mode-toggle");
    toggle.title = "Switch between dark and light";
    toggle.setAttribute("role", "button");
    toggle.setAttribute("aria-label", toggle.title);
    toggle.tabIndex = 0;
    toggle.updateIcon();
    toggle.addEventListener("keydown", (event) => {
      if (event.key === "Enter" || event.key === " ") {
        event.preventDefault();
        toggle.click();
      }
    });
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => toggle.updateIcon());
    bar.append(toggle);
  }
  // A wide table scrolls on its own, so that the page does not.
  for (const table of document.querySelectorAll("table.markdownTable, table.doxtable")) {
    const frame = document.createElement("div");
    frame.className = "wide";
    table.replaceWith(frame);
    frame.append(table);
  }
});

if (typeof DoxygenAwesomeFragmentCopyButton !== "undefined") {
  DoxygenAwesomeFragmentCopyButton.init();
}
if (typeof DoxygenAwesomeInteractiveToc !== "undefined") {
  DoxygenAwesomeInteractiveToc.init();
}
