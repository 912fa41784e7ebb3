#pragma once

#include "adapters/calc/session.hpp"
#include "tbvnonpara/host/Workbook.hpp"
#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara::calc {

class CalcWorksheet : public Worksheet {
 public:
    CalcWorksheet(std::shared_ptr<Session> session, const DocumentRef& document, const SheetRef& sheet);

    [[nodiscard]] std::string GetName() const override;
    [[nodiscard]] WorkbookRef GetParent() const override;
    [[nodiscard]] RangeRef GetCells() const override;
    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override;
    [[nodiscard]] RangeRef GetRange(std::string_view address) const override;
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override;
    void Move(const WorksheetRef& after) override;
    void Activate() override;
    void LetName(std::string_view name) override;
    void Delete() override;

 private:
    std::shared_ptr<Session> m_Session;
    DocumentRef m_Document;
    SheetRef m_Sheet;
};

class CalcWorkbook : public Workbook {
 public:
    CalcWorkbook(std::shared_ptr<Session> session, const DocumentRef& document);

    [[nodiscard]] Long GetWorksheetsCount() const override;
    [[nodiscard]] WorksheetRef GetWorksheets(Long position) const override;
    [[nodiscard]] WorksheetRef GetWorksheets(std::string_view name) const override;
    void Activate() override;

 private:
    std::shared_ptr<Session> m_Session;
    DocumentRef m_Document;
};

/// One cell, counted from 1; raises the host's error outside the sheet.
[[nodiscard]] RangeRef cellOf(const std::shared_ptr<Session>& session, const DocumentRef& document,
                              const SheetRef& sheet, Long row, Long column);

}  // namespace TBVNonPara::calc
