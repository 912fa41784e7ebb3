#pragma once

#include <TBVNonPara/XclsNonParaDetails.hpp>

#include "adapters/calc/script_object.hpp"
#include "tbvnonpara/details/clsNonParaDetails.hpp"

namespace TBVNonPara::calc {

/// The service TBVNonPara.clsNonParaDetails: a test in full, by the typed interface for C++ and by late
/// binding for scripts. Its settings are write-only properties, Text and Json such that can only be read.
class DetailsObject : public ScriptObject<DetailsObject, XclsNonParaDetails> {
 public:
    explicit DetailsObject(const Context& context);

    static constexpr auto implementationName = "TBVNonPara.clsNonParaDetails.Implementation";
    static constexpr auto serviceName = "TBVNonPara.clsNonParaDetails";

    [[nodiscard]] static std::span<const ScriptMember<DetailsObject>> members();

    void SAL_CALL setMethod(sal_Int32 Method) override;
    void SAL_CALL setHeaders(sal_Bool Headers) override;
    void SAL_CALL setOutputDescriptives(sal_Bool OutputDescriptives) override;
    void SAL_CALL setIgnoreTies(sal_Bool IgnoreTies) override;
    void SAL_CALL setTails(sal_Int32 Tails) override;
    void SAL_CALL setYRange(const OUString& Address) override;
    void SAL_CALL setXRange(const OUString& Address) override;
    void SAL_CALL setOutputRange(const OUString& Address) override;
    void SAL_CALL setConfidence(double Confidence) override;
    void SAL_CALL setAdjust(const OUString& Adjust) override;
    void SAL_CALL setControl(const OUString& Control) override;
    void SAL_CALL setTrend(sal_Bool Trend) override;
    void SAL_CALL Calculate() override;
    css::uno::Any SAL_CALL Value(const OUString& Name) override;
    OUString SAL_CALL getText() override;
    OUString SAL_CALL getJson() override;
    OUString SAL_CALL WriteTo(const OUString& Address, sal_Bool OverWrite) override;

 private:
    TBVNonPara::clsNonParaDetails m_Details;
};

}  // namespace TBVNonPara::calc
