#pragma once

#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::Scenarios {

/// The office that the tests of this component run in; set before they start.
inline calc::Context& officeContext() {
    static calc::Context context;
    return context;
}

/// A new spreadsheet with a view, closed with this object.
class OpenDocument {
 public:
    OpenDocument()
        : m_Document(calc::css::frame::Desktop::create(officeContext())
                         ->loadComponentFromURL("private:factory/scalc", "_blank", 0, {}),
                     calc::css::uno::UNO_QUERY_THROW) {}
    ~OpenDocument() { calc::query<calc::css::util::XCloseable>(m_Document)->close(true); }
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;

    [[nodiscard]] const calc::DocumentRef& document() const { return m_Document; }
    [[nodiscard]] calc::SheetRef sheet() const { return calc::sheetAt(m_Document, 0); }

 private:
    calc::DocumentRef m_Document;
};

}  // namespace TBVNonPara::Scenarios
