// Appended to a copy of a report: writes what the browser made of the page into an attribute of the root.
window.addEventListener("load", () => {
  const all = (selector, scope = document) => Array.from(scope.querySelectorAll(selector));
  const row = (tr) => `${tr.className} ${tr.cells.length}`;
  const findings = {
    charset: document.characterSet,
    nestedTables: all("table table").length,
    tables: all("table").map((table) => [table.className, ...all("tr", table).map(row)]),
    headlines: all("p.headline").map((paragraph) => paragraph.textContent),
    verdicts: all("td[id]").map((cell) => [
      cell.id,
      cell.textContent,
      getComputedStyle(cell).backgroundColor,
    ]),
    rightAligned: all("td.ar").every((cell) => getComputedStyle(cell).textAlign === "right"),
    images: all("img").map((image) => [image.getAttribute("src"), image.complete, image.naturalWidth]),
  };
  document.documentElement.dataset.findings = encodeURIComponent(JSON.stringify(findings));
});
