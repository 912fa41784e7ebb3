#pragma once

#include <string_view>

namespace TBVNonPara::rendering {

/// The colours on a light ground, by name.
constexpr std::string_view lightColours =
    "--paper: #ffffff; --ink: #1c2024; --quiet: #5b636b; --line: #8b939b;\n"
    "  --faint: #dfe3e7; --first: #0b63b0; --second: #b4540a; --wash: #dbe9f6;";

/// What the classes of a picture look like, in the colours of the page that it stands on. A rule a selector.
constexpr std::string_view pictureStyle =
    R"(svg text { fill: var(--ink); font-size: 13px; font-family: inherit; }
svg .quiet { fill: var(--quiet); }
svg .axis { stroke: var(--line); fill: none; }
svg .grid { stroke: var(--faint); fill: none; }
svg .box { stroke: var(--first); fill: var(--wash); }
svg .median { stroke: var(--second); stroke-width: 3; fill: none; }
svg .first { fill: var(--first); } svg .second { fill: var(--second); } svg .none { fill: var(--line); }
svg circle { fill-opacity: .7; }
svg .interval { fill: var(--second); }
)";

}  // namespace TBVNonPara::rendering
