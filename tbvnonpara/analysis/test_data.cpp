#include "tbvnonpara/analysis/test_data.hpp"

#include <utility>

#include "tbvnonpara/analysis/table_form.hpp"

namespace TBVNonPara::analysis {

TestData::TestData(const ObjectRef<workbook::EmbeddedApplication>& application, const Choices& choices,
                   const ChosenRanges& chosen)
    : m_Chosen(chosen) {
    if (needsReshaping(*application, choices, chosen)) {
        TableForm form(*application, choices, chosen);
        const bool headed = form.headed();
        const std::size_t second = form.secondColumns();
        const reshaping::Reshaped reshaped =
            std::move(form).bring(columnsAt(*application, chosen.y, chosen.headers));
        m_Account = reshaped.account;
        m_Reshaped.emplace(*application, headed, second, reshaped, shownVariables(*application, chosen));
    }
    if (choices.cut) {
        m_Cut.emplace(application, *choices.cut, m_Reshaped ? m_Reshaped->ranges() : chosen);
    }
}

const ChosenRanges& TestData::ranges() const noexcept {
    if (m_Cut) {
        return m_Cut->ranges();
    }
    return m_Reshaped ? m_Reshaped->ranges() : m_Chosen;
}

const reshaping::Account* TestData::account() const noexcept {
    return m_Account ? &*m_Account : nullptr;
}

const CutNumbers* TestData::cut() const noexcept {
    return m_Cut ? &m_Cut->numbers() : nullptr;
}

std::vector<std::string> TestData::notes() const {
    std::vector<std::string> notes;
    if (m_Account && !m_Chosen.by.empty()) {
        notes.push_back("groups: " + reshaping::sizesOf(m_Account->groups));
    }
    if (std::string leftOut = m_Account ? reshaping::leftOut(*m_Account) : ""; !leftOut.empty()) {
        notes.push_back(std::move(leftOut));
    }
    if (m_Cut) {
        notes.push_back(m_Cut->note());
    }
    return notes;
}

}  // namespace TBVNonPara::analysis
