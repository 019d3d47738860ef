// What is around the themes on the page of a gallery: its look, its controls and their script.
#include "cli/terminal.h"
#include "gallery/page.h"

namespace command {
namespace {

constexpr const char* head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8"/>
<meta name="viewport" content="width=device-width"/>
<meta name="color-scheme" content="light dark"/>
)";

// The dark colours are there twice: for who prefers a dark page and has not switched to light, and for who
// has switched to dark.
constexpr const char* light =
    "color-scheme: light; --page: #ffffff; --text: #1b1b1d; --faint: #55585e; "
    "--link: #0b57d0; --edge: #767b84; --rim: #0002;";
constexpr const char* dark =
    "color-scheme: dark; --page: #16181c; --text: #e9e9ec; --faint: #b3b6bd; "
    "--link: #8ab4f8; --edge: #868b94; --rim: #fff4;";

constexpr const char* style = R"(
body { background: var(--page); color: var(--text); font: 16px/1.4 system-ui, sans-serif; margin: 2rem auto;
    max-width: 110rem; padding: 0 1.5rem; }
h1 { margin: 0 0 1rem; }
main { display: grid; gap: 2.5rem 1.5rem; grid-template-columns: repeat(auto-fill, minmax(min(100%, 18rem), 1fr)); }
article { max-width: 375px; min-width: 0; }
[hidden] { display: none !important; }
h2 { font-size: 1.1rem; margin: 0 0 .5rem; overflow-wrap: anywhere; }
img { border-radius: .6rem; box-shadow: 0 0 0 1px var(--rim), 0 1px 6px #0006; display: block; height: auto; width: 100%; }
ul { display: flex; flex-wrap: wrap; gap: .2rem 1rem; list-style: none; margin: .7rem 0 .3rem; padding: 0; }
li, p { color: var(--faint); font-size: .85rem; margin: 0; overflow-wrap: anywhere; }
.swatch { border: 1px solid var(--edge); border-radius: .2rem; display: inline-block; height: 1em;
    margin-right: .4em; vertical-align: -.15em; width: 1.6em; }
a { color: var(--link); }
#controls { align-items: center; display: flex; flex-wrap: wrap; gap: .7rem 1.5rem; margin-bottom: .7rem; }
input, select, button { background: var(--page); border: 1px solid var(--edge); border-radius: .4rem;
    color: var(--text); font: inherit; min-height: 2.2rem; padding: .2rem .6rem; }
[aria-pressed=true] { background: var(--text); color: var(--page); }
:focus-visible { outline: 3px solid var(--link); outline-offset: 2px; }
#found { margin-bottom: 1.5rem; min-height: 1.2rem; }
)";

// Without scripts there is nothing that could be pressed in vain.
constexpr const char* controls = R"(<div id="controls" role="search" aria-label="Themes" hidden="hidden">
<label>Search by name <input id="search" type="search" autocomplete="off"/></label>
<label>Sort by <select id="sort">
<option value="given">order given</option>
<option value="name">name</option>
<option value="colour">colour of the background</option>
<option value="contrast">contrast, highest first</option>
</select></label>
<button id="dark" type="button" aria-pressed="false">Dark page</button>
</div>
<p id="found" role="status"></p>
</header>
<main>
)";

// With no less-than sign and no ampersand in it, it is the same for XML.
constexpr const char* script = R"html(<script>
(() => {
  "use strict";
  const by_id = id => document.getElementById(id);
  const main = document.querySelector("main"), themes = Array.from(main.children);

  const name = theme => theme.querySelector("h2").textContent;
  const plain = text => text.normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();
  const find = () => {
    const wanted = plain(by_id("search").value.trim());
    for (const theme of themes) theme.hidden = !plain(name(theme)).includes(wanted);
    const found = themes.filter(theme => !theme.hidden).length;
    by_id("found").textContent = wanted ? found + " of " + themes.length + " shown" : "";
  };

  const orders = {
    given: () => 0,
    name: (a, b) => name(a).localeCompare(name(b), undefined, {numeric: true}),
    colour: (a, b) => a.dataset.colour - b.dataset.colour,
    contrast: (a, b) => b.dataset.contrast - a.dataset.contrast,
  };
  const sort = () => main.append(...themes.slice().sort(orders[by_id("sort").value]));

  const page = document.documentElement, preference = matchMedia("(prefers-color-scheme: dark)");
  const is_dark = () => page.dataset.page ? page.dataset.page === "dark" : preference.matches;
  const tell = () => by_id("dark").setAttribute("aria-pressed", String(is_dark()));

  by_id("search").addEventListener("input", find);
  by_id("sort").addEventListener("change", sort);
  by_id("dark").addEventListener("click", () => {
    page.dataset.page = is_dark() ? "light" : "dark";
    tell();
  });
  preference.addEventListener("change", tell);
  by_id("controls").hidden = false;
  tell();
  find();  // a page that is loaded again keeps what was typed and chosen
  sort();
})();
</script>
)html";

}  // namespace

std::string gallery_head(size_t themes, const std::string& digest) {
    const std::string count = counted(themes, "theme");
    return head + ("<meta name=\"huecraft-library-sha256\" content=\"" + digest + "\"/>\n<title>Huecraft: ") +
           count + "</title>\n<style>\n:root { " + light + " }\n@media (prefers-color-scheme: dark) { " +
           ":root:not([data-page=light]) { " + dark + " } }\n:root[data-page=dark] { " + dark + " }" + style +
           "</style>\n</head>\n<body>\n<header>\n<h1>" + count + "</h1>\n" + controls;
}

std::string gallery_end() { return std::string("</main>\n") + script + "</body>\n</html>\n"; }

}  // namespace command
