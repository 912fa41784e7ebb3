#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::reshaping {

/// What helps against a refusal. How it is asked for is the front end's to say.
enum class Remedy {
    CorrectData,
    OmitMissing,  ///< leave out what is missing
    PickGroups,   ///< pick among the groups
    SayHeaders,   ///< say that the first row holds headers
    NameBlocks,   ///< name the column that tells which values belong together
    SplitValues,  ///< split one column by another, whose headers or letters groups() gives
};

/// What is wrong with a table, for front ends with words of their own. The facts of a refusal come in this
/// order.
enum class Reason {
    Other,             ///< no facts
    NotANumber,        ///< cell
    ValuesMissing,     ///< column, how many, of how many, first cell
    NamesMissing,      ///< column, how many rows, first cell
    NoGroup,           ///< column
    OneGroup,          ///< column, group and its size
    TooManyGroups,     ///< column, how many, groups
    BlocksIncomplete,  ///< column, how many, first block, group that it lacks
    SecondValue,       ///< block, column, group, first cell, second cell
    NothingLeft,       ///< column
    UnequalColumns,    ///< column, rows, column, rows
};

/// A table that cannot be brought into the form of a test: the description says what, where and how many.
class TBVNONPARA_API Refusal : public Error {
 public:
    Refusal(std::int32_t number, std::string description, Remedy remedy = Remedy::CorrectData,
            std::vector<std::string> groups = {})
        : Error(number, std::move(description), "tbvnonpara"),
          m_Remedy(remedy),
          m_Groups(std::move(groups)) {}

    /// The same with its reason.
    [[nodiscard]] Refusal about(Reason reason, std::vector<std::string> facts) && {
        m_Reason = reason;
        m_Facts = std::move(facts);
        return std::move(*this);
    }

    [[nodiscard]] Reason reason() const noexcept { return m_Reason; }
    [[nodiscard]] const std::vector<std::string>& facts() const noexcept { return m_Facts; }
    [[nodiscard]] Remedy remedy() const noexcept { return m_Remedy; }
    /// Names of groups to pick from, as many as the test takes, or two columns, where that is the remedy.
    [[nodiscard]] const std::vector<std::string>& groups() const noexcept { return m_Groups; }

 private:
    Remedy m_Remedy;
    std::vector<std::string> m_Groups;
    Reason m_Reason = Reason::Other;
    std::vector<std::string> m_Facts;
};

}  // namespace TBVNonPara::reshaping
