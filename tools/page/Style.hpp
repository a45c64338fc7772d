#pragma once

#include <string_view>

namespace quorin::page {

/// Light or dark, as the reader has it; everything is told by words, too. What is wider than the page scrolls by
/// itself, and paper has all of it.
inline constexpr std::string_view style = R"(:root {
  color-scheme: light dark; scroll-padding-top: 4rem;
  --paper: light-dark(#ffffff, #15181d); --panel: light-dark(#f5f6f8, #1d2128); --line: light-dark(#d5d9df, #383e48);
  --ink: light-dark(#1c2025, #e3e6ea); --quiet: light-dark(#59616b, #a3abb6); --link: light-dark(#0a55ad, #8bbaff);
  --mark: light-dark(#ffe59a, #5c4800); --hit: light-dark(#fff6d9, #332b12);
}
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 0 1.5rem 4rem; max-width: 110rem; background: var(--paper); color: var(--ink); font: 1rem/1.5 system-ui, sans-serif; }
h1, h2, h3 { line-height: 1.25; overflow-wrap: anywhere; }
h1 { font-size: 1.75rem; margin: 1.5rem 0 .75rem; }
h2 { font-size: 1.4rem; margin: 3rem 0 0; padding-bottom: .35rem; border-bottom: 2px solid var(--line); }
h3 { font-size: 1.1rem; margin: 2rem 0 .6rem; }
p { margin: .5rem 0; max-width: 50rem; }
code, .text { font: .875rem/1.5 ui-monospace, "DejaVu Sans Mono", Menlo, Consolas, monospace; }
code, a, strong, h2, li, th, td { unicode-bidi: isolate; }
a { color: var(--link); text-underline-offset: .15em; }
:focus-visible { outline: 3px solid var(--link); outline-offset: 1px; }
@media (pointer: coarse) { .keys { display: none; } }
.hint { color: var(--quiet); font-size: .9em; }
[hidden] { display: none; }
.skip { position: absolute; left: -100rem; z-index: 3; }
.skip:focus { left: 1rem; top: .5rem; padding: .5rem; background: var(--paper); }
nav { position: sticky; top: 0; z-index: 2; margin: 0 -1.5rem; padding: .6rem 1.5rem; max-height: 30vh; overflow: auto; background: var(--paper); border-bottom: 1px solid var(--line); }
nav ul { display: flex; flex-wrap: wrap; gap: .25rem 1rem; margin: 0; padding: 0; list-style: none; }
nav > ul { column-gap: 2.5rem; }
nav > ul > li { display: flex; flex-wrap: wrap; gap: 0 1rem; overflow-wrap: anywhere; }
nav > ul > li > a { font-weight: 600; }
.summary { margin: 0; padding: 0; list-style: none; overflow-wrap: anywhere; }
.summary li { padding: .2rem 0; }
.summary a { margin-right: .5rem; font-weight: 600; }
.badge { display: inline-block; padding: 0 .45rem; border: 1px solid currentcolor; border-radius: .3rem; font-size: .8em; font-weight: 600; white-space: nowrap; }
.error { color: light-dark(#a40000, #ff9d94); }
.warning { color: light-dark(#7a4a00, #ffc56b); }
.note { color: light-dark(#004a8f, #9ccbff); }
.grade { font-weight: 600; }
.beside { display: grid; gap: 1rem; grid-template-columns: minmax(0, 2fr) minmax(0, 3fr); }
.beside > *, .scroll { max-height: 80vh; overflow: auto; border: 1px solid var(--line); border-radius: .4rem; }
.findings { margin: 0; padding: 0; list-style: none; }
.findings li { padding: .6rem .9rem; border-bottom: 1px solid var(--line); overflow-wrap: anywhere; }
.findings li:has([aria-current]) { background: var(--hit); }
.findings p { margin: .1rem 0; }
.text { margin: 0; padding: .5rem 0; counter-reset: line; list-style: none; background: var(--panel); }
.text li { display: flex; min-height: 1.5em; padding-right: .75rem; white-space: pre-wrap; word-break: break-all; }
.text li::before { flex: none; width: 3.75rem; padding-right: 1rem; text-align: right; counter-increment: line; content: counter(line); color: var(--quiet); user-select: none; }
.text li > span { min-width: 0; }
.text li:has(:target) { background: var(--hit); }
mark { background: var(--mark); color: inherit; border-radius: .15rem; scroll-margin: 6rem; }
mark:target { outline: 2px solid var(--link); }
table { border-collapse: separate; border-spacing: 0; min-width: 100%; font-size: .9375em; }
td:has(code) { min-width: 11rem; }
td:has(details) { min-width: 20rem; }
td details { margin: 0; }
td summary { padding: 0; }
caption { padding: .5rem .75rem; text-align: left; color: var(--quiet); }
th, td { padding: .35rem .75rem; border-bottom: 1px solid var(--line); text-align: left; vertical-align: top; overflow-wrap: anywhere; min-width: 6rem; }
thead th { position: sticky; top: 0; z-index: 1; overflow-wrap: break-word; background: var(--panel); }
tbody th { position: sticky; left: 0; min-width: 15rem; font-size: .9em; background: var(--paper); font-weight: 600; }
tbody th { border-right: 1px solid var(--line); }
.absent { color: var(--quiet); font-style: italic; }
.outlier { background: var(--mark); }
main details { margin: .35rem 0; }
summary { padding: .15rem .25rem; cursor: pointer; overflow-wrap: anywhere; }
.tree, .tree ul { margin: 0 0 0 .6rem; padding-left: 1rem; border-left: 1px solid var(--line); list-style: none; }
.tree { overflow-x: auto; }
.tree li { min-width: 8rem; overflow-wrap: anywhere; }
.tree li > span { color: var(--quiet); }
.tree details { margin: 0; }
input { display: block; font: inherit; width: min(30rem, 100%); padding: .4rem .6rem; border: 1px solid var(--quiet); border-radius: .3rem; background: var(--paper); color: var(--ink); }
@media (max-width: 60rem) {
  :root { scroll-padding-top: 0; }
  body { padding: 0 1rem 3rem; }
  nav { position: static; margin: 0 -1rem; padding: .6rem 1rem; max-height: none; }
  nav a { padding: .25rem 0; }
  .beside { grid-template-columns: minmax(0, 1fr); }
  .beside > * { max-height: 60vh; }
  .text li::before { width: 3rem; padding-right: .6rem; }
  tbody th { position: static; min-width: 9rem; }
}
@media print {
  :root { color-scheme: light; }
  body { padding: 0; max-width: none; font-size: 9pt; }
  code, .text { font-size: 7.5pt; }
  h1 { font-size: 16pt; }
  h2 { font-size: 14pt; margin-top: 1rem; }
  h3 { font-size: 11pt; }
  nav, .skip, .search, .keys, [hidden] { display: none; }
  summary { list-style: none; }
  details::details-content { content-visibility: visible; }
  .beside { display: block; }
  .beside > *, .scroll, .tree { max-height: none; overflow: visible; border: 0; }
  .findings li, tr { break-inside: avoid; }
  h2, h3 { break-after: avoid; }
  section + section { break-before: page; }
  body, code, .text, .tree { line-height: 1.3; }
  .text, .tree { columns: 2; }
  .text li { break-inside: avoid; }
  .text li::before { width: 2.2rem; padding-right: .5rem; }
  table { width: 100%; }
  th, td, thead th, tbody th, td:has(*) { position: static; min-width: 3.5rem; padding: .15rem .3rem; }
  tbody th { min-width: 6rem; }
  .fields { page: wide; }
  .fields table { table-layout: fixed; }
  .fields thead th:first-child { width: 16%; }
}
@page { margin: 14mm; }
@page wide { size: landscape; }
)";

}  // namespace quorin::page
