#include "tbvnonpara/analysis/test_data.hpp"

namespace TBVNonPara::analysis {

TestData::TestData(const ObjectRef<workbook::EmbeddedApplication>& application, const Choices& choices,
                   const ChosenRanges& chosen)
    : m_Chosen(chosen) {
    if (needsReshaping(*application, choices, chosen)) {
        m_Reshaped.emplace(*application, choices, chosen);
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
    return m_Reshaped ? &m_Reshaped->account() : nullptr;
}

const CutNumbers* TestData::cut() const noexcept {
    return m_Cut ? &m_Cut->numbers() : nullptr;
}

std::vector<std::string> TestData::notes() const {
    std::vector<std::string> notes;
    if (m_Reshaped && !m_Chosen.by.empty()) {
        notes.push_back("groups: " + reshaping::sizesOf(m_Reshaped->account().groups));
    }
    if (m_Reshaped) {
        if (std::string leftOut = reshaping::leftOut(m_Reshaped->account()); !leftOut.empty()) {
            notes.push_back(std::move(leftOut));
        }
    }
    if (m_Cut) {
        notes.push_back(m_Cut->note());
    }
    return notes;
}

}  // namespace TBVNonPara::analysis
