#include "tbvnonpara/report/alternative.hpp"

namespace TBVNonPara {

std::string alternative(const Labels& names, TBVNPTails tails, std::string_view test) {
    const std::string word(test);
    switch (tails) {
        case tbvNPVar1GTVar2:
            return "1-tailed " + word + " (" + names(1) + " > " + names(2) + ")";
        case tbvNPVar1LTVar2:
            return "1-tailed " + word + " (" + names(1) + " < " + names(2) + ")";
        default:
            return "2-tailed " + word;
    }
}

}  // namespace TBVNonPara
