#include "tbvnonpara/details/json.hpp"

#include "tbvnonpara/details/page.hpp"

namespace TBVNonPara {

namespace {

using statistics::Figure;
using statistics::FigureBlock;
using statistics::NamedFigure;

/// Without the random arrangements, which have a name only where users ask for them.
void leaveOutPermutations(FigureBlock& block) {
    std::erase_if(block, [](const NamedFigure& member) { return member.name == "permutations"; });
    for (NamedFigure& member : block) {
        if (auto* const inner = std::get_if<FigureBlock>(&member.figure.value)) {
            leaveOutPermutations(*inner);
        }
    }
}

}  // namespace

Figure detailFigures(const Details& details) {
    const DetailPage page = detailPage(details);
    statistics::FigureCollector collector;
    collector("schema", 1);
    collector("test", details.test->name);
    collector("level", details.choices.confidence);
    if (takesManyColumns(details.test->shape)) {
        collector("adjust", adjustmentWord(details.choices.adjustment));
    }
    collector("labels", details.labels);
    collector("words", page.words);
    collector("notes", page.notes);
    std::visit([&](const auto& test) { visit(test, collector); }, details.result);
    Figure figures = std::move(collector).figure();
    if (details.choices.permutations == 0) {
        leaveOutPermutations(std::get<FigureBlock>(figures.value));
    }
    return figures;
}

}  // namespace TBVNonPara
