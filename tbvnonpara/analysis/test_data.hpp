#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/cut_sequence.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/analysis/reshaped_ranges.hpp"
#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::analysis {

/// The data of a test as it takes them: the user's ranges, or what is made of them on sheets of their own
/// while it lives.
class TBVNONPARA_API TestData {
 public:
    TestData(const ObjectRef<workbook::EmbeddedApplication>& application, const Choices& choices,
             const ChosenRanges& chosen);

    /// What to run the test on; a report names what the user chose.
    [[nodiscard]] const ChosenRanges& ranges() const noexcept;
    /// What was left out, where something could be.
    [[nodiscard]] const reshaping::Account* account() const noexcept;
    /// Where a sequence was cut, where it was.
    [[nodiscard]] const CutNumbers* cut() const noexcept;
    /// What was done to the data, a line each.
    [[nodiscard]] std::vector<std::string> notes() const;

 private:
    ChosenRanges m_Chosen;
    std::optional<reshaping::Account> m_Account;
    std::optional<ReshapedRanges> m_Reshaped;
    std::optional<CutSequence> m_Cut;
};

}  // namespace TBVNonPara::analysis
