// engine_values
// Reads lines of a word and numbers, prints the probability that the engine or the embedded host gives for
// each with all its digits:
//     mann-whitney N1 N2 U      exact P(statistic >= U)
//     wilcoxon N T              exact P(rank sum <= T) of the ranks 1..N
//     spearman N RS             P of a correlation of at least RS
//     sign POSITIVE NEGATIVE    S of the binomial tail
//     normal Z, chi-square X DF, f X DF1 DF2

#include <cstdio>
#include <iostream>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "tbvnonpara/distributions/mann_whitney.hpp"
#include "tbvnonpara/distributions/spearman.hpp"
#include "tbvnonpara/distributions/wilcoxon.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::Bench {

namespace {

Long whole(double number) {
    return static_cast<int>(number);
}

double signTail(const ObjectRef<workbook::EmbeddedApplication>& host, double positive, double negative) {
    ValueGrid signs(whole(positive + negative), 1, CellValue(1.0));
    for (Long i = whole(positive) + 1; i <= signs.rows(); ++i) {
        signs(i, 1) = -1.0;
    }
    clsNonParaBO engine(ownCompanions(host));
    engine.LetMethod(tbvNPSign);
    engine.LetTails(tbvNPVar1GTVar2);
    engine.LetYs(std::move(signs));
    engine.Letxs(ValueGrid(1, 1));
    engine.Analyse();
    return engine.GetP();
}

double valueOf(const std::string& name, const std::vector<double>& x,
               const ObjectRef<workbook::EmbeddedApplication>& host) {
    const WorksheetFunction& functions = host->GetWorksheetFunction();
    if (name == "mann-whitney") {
        return mannWhitneyP(whole(x.at(0)), whole(x.at(1)), x.at(2), x.at(0) * x.at(1) - x.at(2), 0,
                            tbvNPVar1LTVar2, normalLowerTail);
    }
    if (name == "wilcoxon") {
        std::vector<double> ranks(static_cast<std::size_t>(x.at(0)));
        std::iota(ranks.begin(), ranks.end(), 1.0);
        return wilcoxonTDist(ranks, x.at(1), true);
    }
    if (name == "spearman") {
        return spearmanP(whole(x.at(0)), x.at(1), tbvNPVar1GTVar2, normalLowerTail);
    }
    if (name == "sign") {
        return signTail(host, x.at(0), x.at(1));
    }
    if (name == "normal") {
        return functions.NORMSDIST(x.at(0));
    }
    if (name == "chi-square") {
        return functions.ChiDist(x.at(0), whole(x.at(1)));
    }
    return functions.FDist(x.at(0), whole(x.at(1)), whole(x.at(2)));
}

}  // namespace

}  // namespace TBVNonPara::Bench

int main() {
    const auto host = TBVNonPara::workbook::makeApplication();
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string name;
        words >> name;
        std::vector<double> numbers;
        for (double number = 0; words >> number;) {
            numbers.push_back(number);
        }
        std::printf("%.17g\n", TBVNonPara::Bench::valueOf(name, numbers, host));
    }
}
