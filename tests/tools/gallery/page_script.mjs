// Runs the script of a gallery's page over a stand-in for the document: what searching, sorting and the switch do.
// usage: node page_script.mjs PAGE
import assert from "node:assert/strict";
import {readFileSync} from "node:fs";
import vm from "node:vm";

const html = readFileSync(process.argv[2], "utf8");
const source = html.match(/<script>(.*)<\/script>/s)[1];

/** What the script knows of an element. */
class Element {
  constructor(more = {}) {
    Object.assign(this, {dataset: {}, hidden: false, value: "", textContent: "", attributes: {}, heard: {}}, more);
  }
  addEventListener(event, answer) { this.heard[event] = answer; }
  setAttribute(name, value) { this.attributes[name] = value; }
  fire(event) { this.heard[event](); }
}

const themes = [...html.matchAll(/<article data-colour="(.*?)" data-contrast="(.*?)".*?<h2 dir="auto">(.*?)<\/h2>/gs)]
  .map(([, colour, contrast, name]) => new Element({
    dataset: {colour, contrast}, name,
    querySelector: selector => (assert.equal(selector, "h2"), {textContent: name}),
  }));
assert.ok(themes.length > 2, "the page has themes");

function open({dark = false, search = "", sort = "given"} = {}) {
  const main = new Element({children: [...themes], append(...all) { this.children = all; }});
  const parts = {search: new Element({value: search}), sort: new Element({value: sort}), dark: new Element(),
                 found: new Element(), controls: new Element({hidden: true})};
  for (const id of Object.keys(parts)) assert.ok(html.includes(`id="${id}"`), id);
  for (const theme of themes) theme.hidden = false;
  const document = {documentElement: new Element(), getElementById: id => parts[id], querySelector: () => main};
  const preference = new Element({matches: dark});
  const matchMedia = query => (assert.equal(query, "(prefers-color-scheme: dark)"), preference);
  vm.runInNewContext(source, {document, matchMedia, Array, String});
  return {...parts, page: document.documentElement, preference,
          shown: () => main.children.filter(theme => !theme.hidden).map(theme => theme.name)};
}

const names = themes.map(theme => theme.name);
const by = order => [...themes].sort(order).map(theme => theme.name);
const checks = {
  "the controls are shown, and every theme"() {
    const page = open();
    assert.equal(page.controls.hidden, false);
    assert.deepEqual(page.shown(), names);
    assert.equal(page.found.textContent, "");
  },
  "a search finds a part of the name, in any case and with any accents"() {
    const page = open();
    page.search.value = " nÍGh ";
    page.search.fire("input");
    assert.deepEqual(page.shown(), ["Midnight"]);
    assert.equal(page.found.textContent, `1 of ${names.length} shown`);
    page.search.value = "";
    page.search.fire("input");
    assert.deepEqual(page.shown(), names);
  },
  "each order sorts"() {
    const page = open(), sorted = order => {
      page.sort.value = order;
      page.sort.fire("change");
      return page.shown();
    };
    assert.deepEqual(sorted("name"), [...names].sort());
    assert.deepEqual(sorted("colour"), by((a, b) => a.dataset.colour - b.dataset.colour));
    assert.deepEqual(sorted("contrast"), by((a, b) => b.dataset.contrast - a.dataset.contrast));
    assert.deepEqual(sorted("given"), names);
  },
  "what was typed and chosen before counts when the page is loaded"() {
    assert.deepEqual(open({search: "midnight"}).shown(), ["Midnight"]);
    assert.deepEqual(open({sort: "contrast"}).shown(), by((a, b) => b.dataset.contrast - a.dataset.contrast));
  },
  "the switch turns what the reader prefers, and says so"() {
    for (const dark of [false, true]) {
      const {page, dark: button} = open({dark});
      assert.equal(button.attributes["aria-pressed"], String(dark));
      button.fire("click");
      assert.equal(page.dataset.page, dark ? "light" : "dark");
      assert.equal(button.attributes["aria-pressed"], String(!dark));
      button.fire("click");
      assert.equal(page.dataset.page, dark ? "dark" : "light");
    }
  },
};
let failed = 0;
for (const [name, check] of Object.entries(checks))
  try {
    check();
    console.log("ok", name);
  } catch (error) {
    ++failed;
    console.log("not ok", name + ":", error.message);
  }
process.exit(failed ? 1 : 0);
