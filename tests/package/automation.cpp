// A C++ client of the library: the Mann-Whitney test of two small samples, without any spreadsheet.

#include <iostream>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"

int main() {
    using namespace TBVNonPara;

    clsNonParaBO engine(ownCompanions(nullptr));
    engine.LetMethod(tbvNPMannU);
    engine.LetYs(ValueGrid{{1.0}, {2.0}, {3.0}});
    engine.Letxs(ValueGrid{{4.0}, {5.0}, {6.0}});
    engine.Analyse();
    std::cout << "U = " << engine.GetU() << ", P = " << engine.GetP() << '\n';

    try {
        engine.LetYs(ValueGrid{{"n/a"}});
        engine.Analyse();
    } catch (const Error& error) {
        std::cout << "error " << error.number() << ", " << error.description() << ", " << error.source()
                  << '\n';
    }
}
