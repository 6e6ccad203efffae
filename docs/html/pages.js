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
});

if (typeof DoxygenAwesomeFragmentCopyButton !== "undefined") {
  DoxygenAwesomeFragmentCopyButton.init();
}
if (typeof DoxygenAwesomeInteractiveToc !== "undefined") {
  // How far below the top of the window the text begins.
  DoxygenAwesomeInteractiveToc.topOffset = 140;
  DoxygenAwesomeInteractiveToc.init();
}
