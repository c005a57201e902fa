// The search of the manual: pages that have all of the words, those with the words in their titles first. Without a
// script the contents remain.
"use strict";

(() => {
  const box = document.getElementById("search");
  const found = document.getElementById("found");
  const most = 12;
  box.parentElement.hidden = false;
  if (matchMedia("(max-width: 900px)").matches) document.querySelector("nav details").open = false;
  document.querySelector("nav a[aria-current]")?.scrollIntoView({ block: "nearest" });
  scrollTo(0, location.hash ? scrollY : 0);

  const plain = (text) => text.toLowerCase().normalize("NFD").replace(/\p{M}/gu, "");
  const pages = manualPages.map((page) => ({
    ...page, inTitle: plain(page.title), inWords: plain(page.words),
    inHeadings: plain(page.headings.map(([text]) => text).join("\n")), inText: plain(page.text),
  }));
  // How well one word fits a page; the beginning of a word is enough.
  const worth = (page, word) => {
    const begins = (text) => new RegExp("(^|[^\\p{L}\\p{N}])" + word.replace(/[.*+?^${}()|[\]\\]/g, "\\$&"), "u").test(text);
    return (begins(page.inTitle) ? 20 : 0) + (begins(page.inWords) ? 10 : 0) + (begins(page.inHeadings) ? 5 : 0) +
      (begins(page.inText) ? 1 : 0);
  };
  const around = (page, word) => {
    const at = page.inText.indexOf(word);
    if (at < 0) return page.text.slice(0, 110);
    const from = at < 50 ? 0 : page.text.indexOf(" ", at - 50) + 1;
    return (from > 0 ? "... " : "") + page.text.slice(from, from + 120);
  };
  const show = () => {
    const words = plain(box.value).split(/\s+/).filter(Boolean);
    found.replaceChildren();
    found.hidden = words.length === 0;
    if (found.hidden) return;
    const hits = pages
      .map((page) => ({ page, worths: words.map((word) => worth(page, word)) }))
      .filter(({ worths }) => worths.every((one) => one > 0))
      .map(({ page, worths }) => ({ page, sum: worths.reduce((sum, one) => sum + one, 0) }))
      .sort((one, other) => other.sum - one.sum)
      .slice(0, most);
    for (const { page } of hits) {
      const heading = page.headings.find(([text]) => words.every((word) => plain(text).includes(word)));
      const link = document.createElement("a");
      link.href = page.file + (heading ? "#" + heading[1] : "");
      link.textContent = page.title + (heading ? " - " + heading[0] : "");
      const line = document.createElement("small");
      line.textContent = around(page, words[0]);
      link.append(line);
      const item = document.createElement("li");
      item.append(link);
      found.append(item);
    }
    if (hits.length === 0) {
      const item = document.createElement("li");
      item.className = "none";
      item.textContent = "No page has these words.";
      found.append(item);
    }
  };
  const close = () => {
    found.hidden = true;
    box.value = "";
  };
  const step = (by) => {
    const links = [...found.querySelectorAll("a")];
    const at = links.indexOf(document.activeElement) + by;
    (at < 0 ? box : links[Math.min(at, links.length - 1)] ?? box).focus();
  };
  box.addEventListener("input", show);
  box.addEventListener("focus", show);
  document.addEventListener("keydown", (event) => {
    const inSearch = box.parentElement.contains(document.activeElement);
    if (event.key === "/" && !inSearch) box.focus();
    else if (event.key === "Escape" && inSearch) close();
    else if (event.key === "ArrowDown" && inSearch) step(1);
    else if (event.key === "ArrowUp" && inSearch) step(-1);
    else if (event.key === "Enter" && document.activeElement === box) found.querySelector("a")?.click();
    else return;
    event.preventDefault();
  });
  document.addEventListener("click", (event) => {
    if (!box.parentElement.contains(event.target)) found.hidden = true;
  });
})();
