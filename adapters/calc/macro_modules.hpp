#pragma once

#include <com/sun/star/container/XNameContainer.hpp>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// Gives a sheet a macro module: a document whose macros are in the VBA mode takes a sheet of another one
/// together with the sheet's module, and takes none without.
void giveModule(const DocumentRef& document, const SheetRef& sheet);

/// Removes a sheet, and no module of another: where macros are in the VBA mode, the office takes away the
/// module of the sheet that comes to stand in its place.
void removeSheet(const DocumentRef& document, const OUString& name);

/// The macro modules that a document has now. Where its macros are in the VBA mode, each new sheet gets one,
/// which stays when the sheet goes.
class MacroModules {
 public:
    MacroModules() = default;
    explicit MacroModules(const DocumentRef& document);
    /// Removes the modules that have come since.
    void removeAdded() const;

 private:
    Reference<css::container::XNameContainer> m_Modules;
    css::uno::Sequence<OUString> m_Names;
};

}  // namespace TBVNonPara::calc
