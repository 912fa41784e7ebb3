#include "adapters/calc/undo_step.hpp"

#include <com/sun/star/document/XUndoAction.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <cppuhelper/implbase1.hxx>
#include <utility>

namespace TBVNonPara::calc {

namespace {

Reference<css::document::XUndoManager> managerOf(const DocumentRef& document) {
    return query<css::document::XUndoManagerSupplier>(document)->getUndoManager();
}

/// Changes nothing: with it in the step there is one to be undone, whatever else was done.
class Nothing : public cppu::WeakImplHelper1<css::document::XUndoAction> {
 public:
    OUString SAL_CALL getTitle() override { return {}; }
    void SAL_CALL undo() override {}
    void SAL_CALL redo() override {}
};

}  // namespace

void UndoStep::open(const DocumentRef& document, const OUString& title) {
    managerOf(document)->enterUndoContext(title);
    m_Document = document;
}

void UndoStep::close() noexcept {
    const DocumentRef document = std::exchange(m_Document, {});
    try {
        if (document.is()) {
            managerOf(document)->leaveUndoContext();
        }
    } catch (const css::uno::Exception&) {
        // The document was closed in the meantime, and its undo steps with it.
    }
}

bool UndoStep::canTakeBack() const {
    bool enabled = false;
    return m_Document.is() && (property(m_Document, "IsUndoEnabled") >>= enabled) && enabled &&
           !managerOf(m_Document)->isLocked();
}

void UndoStep::takeBack() {
    const auto manager = managerOf(m_Document);
    manager->addUndoAction(new Nothing);
    close();
    manager->undo();
    manager->clearRedo();
}

}  // namespace TBVNonPara::calc
