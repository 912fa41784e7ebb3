#include <array>
#include <com/sun/star/deployment/PackageInformationProvider.hpp>
#include <com/sun/star/system/SystemShellExecute.hpp>
#include <com/sun/star/system/SystemShellExecuteFlags.hpp>

#include "adapters/calc/analysis_dialog.hpp"

namespace TBVNonPara::calc {

namespace {

constexpr std::array pages{"mann_whitney", "wilcoxon", "spearman",       "sign",
                           "median",       "friedman", "kruskal_wallis", "runs"};

/// The pages came with the add-in, so that they are there without a network and are those of this version.
OUString pageOf(TBVNPMethod method, const Context& context) {
    const OUString package =
        css::deployment::PackageInformationProvider::get(context)->getPackageLocation("org.tbvnonpara.calc");
    return package + "/help/" + OUString::createFromAscii(pages.at(static_cast<std::size_t>(method))) +
           ".html";
}

}  // namespace

/// Opens the page of the chosen test in the user's browser.
void AnalysisDialog::help() {
    const OUString page = pageOf(method(), m_Context);
    m_View.clearMessages();
    try {
        css::system::SystemShellExecute::create(m_Context)->execute(
            page, OUString(), css::system::SystemShellExecuteFlags::URIS_ONLY);
    } catch (const css::uno::Exception&) {
        m_View.setMessage(Field::None, std::string(m_Texts.noBrowser) + ' ' + toUtf8(page));
    }
    arrange();
}

}  // namespace TBVNonPara::calc
