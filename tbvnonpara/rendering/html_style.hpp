#pragma once

#include <string_view>

namespace TBVNonPara::rendering {

/// The style sheet of a page behind its colours on a light ground. What pictures look like follows it.
constexpr std::string_view htmlStyle = R"(
@media (prefers-color-scheme: dark) {
  :root { --paper: #14171a; --ink: #e8eaed; --quiet: #a6adb5; --line: #7d868f; --faint: #343a40;
    --first: #7ab8f0; --second: #f2a35e; --wash: #20364a; }
}
* { box-sizing: border-box; }
body { margin: 0; background: var(--paper); color: var(--ink);
  font: 1rem/1.45 system-ui, -apple-system, "Segoe UI", "Liberation Sans", Arial, sans-serif; }
main { max-width: 60rem; margin: 0 auto; padding: 1.25rem 1rem 2.5rem; }
h1 { font-size: 1.35rem; margin: 0 0 .5rem; }
h1, p { overflow-wrap: anywhere; }
p { margin: .15rem 0; }
p.quiet { color: var(--quiet); }
.b { font-weight: 600; }
section, figure { margin: 1.5rem 0 0; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; font-variant-numeric: tabular-nums; }
caption { text-align: left; font-weight: 600; padding: 0 0 .3rem; white-space: nowrap; }
th, td { padding: .2rem .75rem; font-weight: 400; white-space: nowrap; border: 0 solid var(--line); }
th.b, td.b { font-weight: 600; }
.l { text-align: left; } .c { text-align: center; } .r { text-align: right; }
.bt { border-top-width: 1px; } .bb { border-bottom-width: 1px; }
.bl { border-left-width: 1px; } .br { border-right-width: 1px; }
figcaption { color: var(--quiet); font-size: .9rem; }
svg { display: block; width: 100%; max-width: 44rem; height: auto; overflow: visible; }
)";

/// What differs on a phone and on paper.
constexpr std::string_view htmlMediaStyle = R"(
@media (max-width: 34rem) { table { font-size: .9rem; } th, td { padding: .2rem .35rem; }
  svg text { font-size: 17px; } }
@media print {
  :root { --paper: #ffffff; --ink: #000000; --quiet: #444444; --line: #666666; --faint: #dddddd;
    --first: #0b63b0; --second: #b4540a; --wash: #dbe9f6; }
  main { max-width: none; padding: 0; }
  .scroll { overflow: visible; }
  table { font-size: 8.5pt; }
  thead { display: table-header-group; } tr, figure { break-inside: avoid; }
}
)";

/// What a page with details has beyond that.
constexpr std::string_view htmlDetailsStyle = R"(
h2 { font-size: 1.15rem; margin: 0 0 .5rem; }
h3 { font-size: 1rem; margin: 1.2rem 0 .4rem; }
.details .scroll { margin: 1rem 0 0; }
.details .name { white-space: pre; }
.details figure + p, .details .scroll + p { margin-top: 1rem; }
blockquote { margin: 0; padding: .5rem .8rem; border-left: 3px solid var(--line); background: var(--wash);
  overflow-wrap: anywhere; user-select: all; -webkit-user-select: all; }
svg .reference { stroke: var(--quiet); stroke-dasharray: 4 3; fill: none; }
svg .span { stroke: var(--first); stroke-width: 2; fill: none; }
svg .differs { stroke: var(--second); }
@media print { blockquote { background: none; } }
)";

}  // namespace TBVNonPara::rendering
