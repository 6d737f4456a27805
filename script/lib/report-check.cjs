// report-check.cjs PAGE PICTURE PICTURED: looks for faults in PAGE with a browser, and takes a picture of PICTURED. Ends with 1
// when something is wrong, or when a fault that was planted is not found.
"use strict";
const fs = require("fs");
const os = require("os");
const path = require("path");
const { pathToFileURL } = require("url");
const { chromium } = require("playwright-core");
const axe = fs.readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");

const SETTINGS = 122;
const LOOKS = [
  { name: "light", colorScheme: "light", viewport: { width: 1200, height: 900 } },
  { name: "dark", colorScheme: "dark", viewport: { width: 1200, height: 900 } },
  { name: "narrow", colorScheme: "light", viewport: { width: 360, height: 700 } },
];

// Changes of the page's text, and what has to be found then.
const PLANTED = [
  ["a script that fails", (html) => html.replace('"use strict";', '"use strict"; missing();'), /console|shown/],
  ["a picture from elsewhere", (html) => html.replace("<main", '<img alt="" src="http://127.0.0.1:9/x.png"><main'), /console|request/],
  ["no language", (html) => html.replace('<html lang="en">', "<html>"), /html-has-lang/],
  ["a field without a label", (html) => html.replace("<label>Find ", "<label></label><label hidden>").replace('id="query"></label>', '></label><input id="query">'), /label/],
  ["quiet words that nobody can read", (html) => html.replace("--quiet: #4a535e", "--quiet: #c0c0c0"), /color-contrast/],
  ["an id that stands there twice", (html) => html.replace('<h1>', '<h1 id="query">'), /console|keyboard|search/],
  ["a search that finds nothing", (html) => html.replace("row.hidden = !fits", "row.hidden = true || !fits"), /shown|search/],
  ["tools on paper", (html) => html.replace(".tools, nav, .skip { display: none; }", ""), /print/],
];

async function openPage(browser, look, file, faults) {
  const context = await browser.newContext({ colorScheme: look.colorScheme, viewport: look.viewport });
  const page = await context.newPage();
  page.on("console", (message) => {
    if (message.type() === "error" || message.type() === "warning") faults.push("console: " + message.text());
  });
  page.on("pageerror", (error) => faults.push("console: " + error.message));
  page.on("request", (request) => {
    if (request.url() !== pathToFileURL(file).href) faults.push("request: " + request.url());
  });
  await page.goto(pathToFileURL(file).href);
  return page;
}

async function expectShown(page, wanted, when, faults) {
  const shown = await page.locator("tbody tr:visible").count();
  if (wanted(shown)) return;
  faults.push("search: " + shown + " settings are shown " + when);
}

// Nothing but keys, from the page's beginning.
async function useWithKeys(page, faults) {
  const focused = () => page.evaluate(() => document.activeElement.id || document.activeElement.className || document.activeElement.tagName);
  await page.keyboard.press("Tab");
  if ((await focused()) !== "skip") faults.push("keyboard: the first stop is " + (await focused()));
  let stops = 0;
  while ((await focused()) !== "query" && stops < 40) {
    await page.keyboard.press("Tab");
    stops += 1;
  }
  if (stops === 40) {
    faults.push("keyboard: the search cannot be reached");
    return;
  }
  await expectShown(page, (count) => count === SETTINGS, "at first", faults);
  await page.keyboard.type("downsample dpi");
  await expectShown(page, (count) => count === 3, "for 'downsample dpi'", faults);
  await page.keyboard.press("Escape");
  await expectShown(page, (count) => count === SETTINGS, "after Escape", faults);
  await page.keyboard.press("Tab");
  await page.keyboard.press("Space");
  await expectShown(page, (count) => count > 3 && count < 40, "that differ", faults);
  const status = await page.locator("#count").textContent();
  if (!/^\d+ of 122 settings shown$/.test(status)) faults.push("search: the status says '" + status + "'");
  await page.keyboard.press("Space");
}

async function findFaults(browser, file) {
  const faults = [];
  for (const look of LOOKS) {
    const page = await openPage(browser, look, file, faults);
    await page.addScriptTag({ content: axe }).catch(() => page.evaluate(axe));
    const found = await page.evaluate(() => window.axe.run(document, { resultTypes: ["violations"] }));
    for (const violation of found.violations) {
      faults.push(look.name + ": " + violation.id + ": " + violation.nodes[0].html.slice(0, 120));
    }
    const wide = await page.evaluate(() => document.documentElement.scrollWidth > window.innerWidth);
    if (wide) faults.push(look.name + ": the page is wider than its window");
    await useWithKeys(page, faults);
    await page.emulateMedia({ media: "print" });
    if (await page.locator(".tools").isVisible()) faults.push("print: the search is on paper");
    await page.context().close();
  }
  return faults;
}

async function plantFaults(browser, html) {
  const folder = fs.mkdtempSync(path.join(os.tmpdir(), "report-check-"));
  let missed = 0;
  for (const [name, plant, wanted] of PLANTED) {
    const planted = plant(html);
    const file = path.join(folder, "planted.html");
    fs.writeFileSync(file, planted);
    const found = planted === html ? [] : await findFaults(browser, file);
    const isFound = found.some((fault) => wanted.test(fault));
    console.log((isFound ? "found:  " : "MISSED: ") + name);
    if (!isFound) missed += 1;
  }
  fs.rmSync(folder, { recursive: true });
  return missed;
}

async function main() {
  const [file, picture, pictured] = process.argv.slice(2).map((each) => path.resolve(each));
  const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox"] });
  const missed = await plantFaults(browser, fs.readFileSync(file, "utf8"));
  const faults = await findFaults(browser, file);
  for (const fault of faults) console.log("fault:  " + fault);
  const page = await openPage(browser, LOOKS[0], pictured, faults);
  await page.screenshot({ path: picture });
  await browser.close();
  console.log(faults.length + " faults in the page, " + missed + " planted ones missed");
  process.exitCode = faults.length + missed === 0 ? 0 : 1;
}

main();
