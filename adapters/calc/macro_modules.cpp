#include "adapters/calc/macro_modules.hpp"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/script/XLibraryContainer.hpp>
#include <com/sun/star/script/vba/XVBACompatibility.hpp>
#include <com/sun/star/script/vba/XVBAModuleInfo.hpp>

namespace TBVNonPara::calc {

namespace {

using Libraries = Reference<css::script::XLibraryContainer>;
using Modules = Reference<css::container::XNameContainer>;

constexpr auto standard = "Standard";

Libraries librariesOf(const DocumentRef& document) {
    Libraries libraries;
    property(document, "BasicLibraries") >>= libraries;
    return libraries;
}

Modules modulesIn(const Libraries& libraries, const OUString& library) {
    libraries->loadLibrary(library);
    return {libraries->getByName(library), css::uno::UNO_QUERY_THROW};
}

/// The modules of a document's sheets; none where its macros are not in the VBA mode.
Modules modulesOfSheets(const DocumentRef& document) {
    const Libraries libraries = librariesOf(document);
    const auto mode = queryIfAny<css::script::vba::XVBACompatibility>(libraries);
    if (!mode.is() || !mode->getVBACompatibilityMode()) {
        return {};
    }
    const OUString project = mode->getProjectName();
    const OUString library = project.isEmpty() ? OUString::createFromAscii(standard) : project;
    return libraries->hasByName(library) ? modulesIn(libraries, library) : Modules();
}

}  // namespace

void giveModule(const DocumentRef& document, const SheetRef& sheet) {
    const Libraries libraries = librariesOf(document);
    const OUString library = OUString::createFromAscii(standard);
    if (!libraries->hasByName(library)) {
        libraries->createLibrary(library);
    }
    const OUString name = nameOf(sheet);
    const Modules modules = modulesIn(libraries, library);
    if (!modules->hasByName(name)) {
        modules->insertByName(name, css::uno::Any(OUString()));
    }
    setProperty(sheet, "CodeName", name);
}

void removeSheet(const DocumentRef& document, const OUString& name) {
    const auto sheets = sheetsOf(document);
    if (modulesOfSheets(document).is()) {
        const std::int32_t count = query<css::container::XIndexAccess>(sheets)->getCount();
        sheets->moveByName(name, static_cast<std::int16_t>(count));
    }
    sheets->removeByName(name);
}

MacroModules::MacroModules(const DocumentRef& document) : m_Modules(modulesOfSheets(document)) {
    if (m_Modules.is()) {
        m_Names = m_Modules->getElementNames();
    }
}

void MacroModules::removeAdded() const {
    if (!m_Modules.is()) {
        return;
    }
    const auto kinds = queryIfAny<css::script::vba::XVBAModuleInfo>(m_Modules);
    for (const OUString& name : m_Modules->getElementNames()) {
        if (std::ranges::find(m_Names, name) != m_Names.end()) {
            continue;
        }
        m_Modules->removeByName(name);
        // Left behind, it would make the office fail when a module of this name comes again.
        if (kinds.is() && kinds->hasModuleInfo(name)) {
            kinds->removeModuleInfo(name);
        }
    }
}

}  // namespace TBVNonPara::calc
