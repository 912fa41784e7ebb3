#include "tbvnonpara/reshaping/account.hpp"

namespace TBVNonPara::reshaping {

std::string_view nameOf(Unit unit) noexcept {
    return unit == Unit::Pair ? "pairs" : unit == Unit::Block ? "blocks" : "values";
}

std::string leftOut(const Account& account) {
    std::string list;
    const auto add = [&](std::size_t count, std::size_t of, std::string_view what, std::string_view why) {
        if (count > 0) {
            list += (list.empty() ? "left out: " : ", ") + std::to_string(count) + " of " +
                    std::to_string(of) + ' ' + std::string(what) + ' ' + std::string(why);
        }
    };
    add(account.unfulfilled, account.rows, "rows", "by the conditions");
    add(account.otherGroups, account.rows, "rows", "of other groups");
    add(account.unnamed, account.rows, "rows", "without a group or block");
    add(account.missing, account.units, nameOf(account.unit),
        account.unit == Unit::Pair || account.unit == Unit::Block ? "with missing values"
                                                                  : "that are missing");
    return list;
}

}  // namespace TBVNonPara::reshaping
