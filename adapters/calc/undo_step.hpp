#pragma once

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// All changes of a run to one document as one step of its undo list.
class UndoStep {
 public:
    [[nodiscard]] bool isOpen() const noexcept { return m_Document.is(); }

    void open(const DocumentRef& document, const OUString& title);
    /// An empty step leaves no trace in the list.
    void close() noexcept;

    /// Whether the document keeps its changes, so that they can be taken back.
    [[nodiscard]] bool canTakeBack() const;
    /// Takes back everything since the step was opened, and closes it.
    void takeBack();

 private:
    DocumentRef m_Document;
};

}  // namespace TBVNonPara::calc
