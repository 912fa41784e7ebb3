#pragma once

#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/lang/XServiceName.hpp>
#include <com/sun/star/sheet/XAddIn.hpp>
#include <com/sun/star/sheet/XCompatibilityNames.hpp>
#include <com/tbvnonpara/XFunctions.hpp>
#include <cppuhelper/implbase5.hxx>

#include "adapters/calc/documents.hpp"
#include "adapters/calc/functions/figures_in_formula.hpp"
#include "adapters/calc/functions/function_texts.hpp"

namespace TBVNonPara::calc {

/// The tests as functions in cells. A function throws nothing: a cell shows an error instead.
class FunctionsObject : public cppu::WeakImplHelper5<com::tbvnonpara::XFunctions, css::sheet::XAddIn,
                                                     css::sheet::XCompatibilityNames, css::lang::XServiceName,
                                                     css::lang::XServiceInfo> {
 public:
    explicit FunctionsObject(const Context& /*context*/) {}

    static constexpr auto implementationName = "com.tbvnonpara.Functions.Implementation";
    static constexpr auto serviceName = "com.tbvnonpara.Functions";

    using Any = css::uno::Any;
    using AnyList = css::uno::Sequence<Any>;
    using CellRange = Reference<css::table::XCellRange>;

    Any SAL_CALL mannWhitneyTest(const CellRange& first, const CellRange& second,
                                 const Any& alternative) override;
    Any SAL_CALL wilcoxonTest(const CellRange& first, const CellRange& second,
                              const Any& alternative) override;
    Any SAL_CALL spearmanTest(const CellRange& first, const CellRange& second,
                              const Any& alternative) override;
    Any SAL_CALL signTest(const CellRange& first, const Any& second, const Any& alternative) override;
    Any SAL_CALL medianTest(const CellRange& groups, const AnyList& more) override;
    Any SAL_CALL friedmanTest(const CellRange& groups, const AnyList& more) override;
    Any SAL_CALL kruskalWallisTest(const CellRange& groups, const AnyList& more) override;
    Any SAL_CALL runsTest(const CellRange& sequence, const Any& alternative) override;

    Any SAL_CALL mannWhitneyDetails(const CellRange& first, const CellRange& second,
                                    const Any& name) override;
    Any SAL_CALL wilcoxonDetails(const CellRange& first, const CellRange& second, const Any& name) override;
    Any SAL_CALL spearmanDetails(const CellRange& first, const CellRange& second, const Any& name) override;
    Any SAL_CALL signDetails(const CellRange& first, const Any& second, const Any& name) override;
    Any SAL_CALL medianDetails(const CellRange& groups, const AnyList& more) override;
    Any SAL_CALL friedmanDetails(const CellRange& groups, const AnyList& more) override;
    Any SAL_CALL kruskalWallisDetails(const CellRange& groups, const AnyList& more) override;
    Any SAL_CALL runsDetails(const CellRange& sequence, const Any& name) override;

    OUString SAL_CALL getProgrammaticFuntionName(const OUString& shown) override;
    OUString SAL_CALL getDisplayFunctionName(const OUString& method) override;
    OUString SAL_CALL getFunctionDescription(const OUString& method) override;
    OUString SAL_CALL getDisplayArgumentName(const OUString& method, sal_Int32 argument) override;
    OUString SAL_CALL getArgumentDescription(const OUString& method, sal_Int32 argument) override;
    OUString SAL_CALL getProgrammaticCategoryName(const OUString& method) override;
    OUString SAL_CALL getDisplayCategoryName(const OUString& method) override;
    css::uno::Sequence<css::sheet::LocalizedName> SAL_CALL
    getCompatibilityNames(const OUString& method) override;

    void SAL_CALL setLocale(const css::lang::Locale& locale) override;
    css::lang::Locale SAL_CALL getLocale() override;
    OUString SAL_CALL getServiceName() override;
    OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const OUString& service) override;
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override;

 private:
    [[nodiscard]] Any figure(TBVNPMethod method, const Any& name, const auto& readColumns);
    [[nodiscard]] OUString shown(const WizardText& text) const;
    [[nodiscard]] const ArgumentTexts* argumentOf(const OUString& method, sal_Int32 argument) const;

    css::lang::Locale m_Locale;
    RecentFigures m_Figures;
};

}  // namespace TBVNonPara::calc
