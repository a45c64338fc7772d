#pragma once

#include <string_view>

namespace quorin::page {

/// The colours are the reader's own, light or dark; everything is told by words, too.
inline constexpr std::string_view style =
    R"(:root { color-scheme: light dark; --line: color-mix(in srgb, CanvasText 25%, Canvas); --soft: color-mix(in srgb, CanvasText 6%, Canvas); }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 0 1rem 4rem; max-width: 100rem; background: Canvas; color: CanvasText; font: 1rem/1.5 system-ui, sans-serif; }
h1 { font-size: 1.6rem; margin: 1rem 0 .25rem; }
h2 { font-size: 1.3rem; margin: 2.5rem 0 .5rem; border-bottom: 2px solid var(--line); }
h3 { font-size: 1.1rem; margin: 1.5rem 0 .5rem; }
code, pre, .text { font: .9rem/1.5 ui-monospace, monospace; }
a { color: LinkText; }
:focus-visible { outline: 3px solid Highlight; outline-offset: 2px; }
nav ul { display: flex; flex-wrap: wrap; gap: .25rem 1rem; padding: 0; list-style: none; }
.skip { position: absolute; left: -100rem; }
.skip:focus { left: 1rem; top: 1rem; background: Canvas; padding: .5rem; }
.beside { display: grid; gap: 1rem; grid-template-columns: minmax(18rem, 2fr) 3fr; }
.beside > * { max-height: 80vh; overflow: auto; border: 1px solid var(--line); border-radius: .25rem; }
.findings { margin: 0; padding: 0; list-style: none; }
.findings li { padding: .5rem .75rem; border-bottom: 1px solid var(--line); overflow-wrap: anywhere; }
.findings p { margin: .1rem 0; }
.badge { display: inline-block; padding: 0 .4rem; border: 1px solid currentcolor; border-radius: .25rem; font-size: .8rem; font-weight: 600; }
.error { color: light-dark(#a40000, #ff9d94); }
.warning { color: light-dark(#7a4a00, #ffc56b); }
.note { color: light-dark(#004a8f, #9ccbff); }
.text { margin: 0; padding: .5rem 0; counter-reset: line; list-style: none; }
.text li { display: flex; min-height: 1.5em; white-space: pre-wrap; overflow-wrap: anywhere; scroll-margin: 4rem; unicode-bidi: isolate; }
.text li::before { flex: none; width: 4.5rem; padding-right: 1rem; text-align: right; counter-increment: line; content: counter(line); color: GrayText; }
.text li:target { background: Mark; color: MarkText; }
.text mark { background: Mark; color: MarkText; border-radius: .15rem; }
.scroll { overflow: auto; max-height: 80vh; border: 1px solid var(--line); }
table { border-collapse: collapse; width: 100%; }
caption { text-align: left; padding: .5rem; }
th, td { padding: .25rem .5rem; border: 1px solid var(--line); text-align: left; vertical-align: top; overflow-wrap: anywhere; unicode-bidi: isolate; }
thead th { position: sticky; top: 0; background: Canvas; }
.absent { font-style: italic; }
.outlier { background: Mark; color: MarkText; }
.tree, .tree ul { margin: 0; padding-left: 1.25rem; list-style: none; }
.tree li { overflow-wrap: anywhere; }
.tree summary, summary { cursor: pointer; }
[hidden] { display: none; }
input { font: inherit; width: min(30rem, 100%); padding: .4rem .6rem; border: 1px solid GrayText; border-radius: .25rem; background: Field; color: FieldText; }
@media (max-width: 60rem) { .beside { grid-template-columns: 1fr; } .beside > * { max-height: 60vh; } }
@media print { nav, .search { display: none; } .beside { display: block; } .beside > *, .scroll { max-height: none; overflow: visible; border: 0; } h2 { break-before: page; } }
)";

}  // namespace quorin::page
