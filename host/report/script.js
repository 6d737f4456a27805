"use strict";
(function () {
  const query = document.getElementById("query");
  const only = document.getElementById("only");
  const count = document.getElementById("count");
  const rows = Array.from(document.querySelectorAll("tbody tr"));
  const words = new Map(rows.map((row) => [row, row.textContent.toLowerCase()]));

  function show() {
    const wanted = query.value.trim().toLowerCase().split(/\s+/);
    let shown = 0;
    for (const row of rows) {
      const isMarked = row.classList.contains("differs") || row.classList.contains("damaged");
      const fits = wanted.every((word) => words.get(row).includes(word));
      row.hidden = !fits || (only.checked && !isMarked);
      if (!row.hidden) shown += 1;
    }
    for (const group of document.querySelectorAll("section.group")) {
      group.hidden = !group.querySelector("tbody tr:not([hidden])");
    }
    count.textContent = shown + " of " + rows.length + " settings shown";
  }

  query.addEventListener("input", show);
  only.addEventListener("change", show);
  query.addEventListener("keydown", function (event) {
    if (event.key !== "Escape") return;
    query.value = "";
    show();
  });
  show();
})();
