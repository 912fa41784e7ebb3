#pragma once

#include "adapters/com/automation_object.hpp"
#include "tbvnonpara/details/clsNonParaDetails.hpp"

namespace TBVNonPara::com {

/// TBVNonPara.clsNonParaDetails.
class DetailsObject final
    : public AutomationObject<_clsNonParaDetails, ::clsNonParaDetails, clsNonParaDetails> {
 public:
    explicit DetailsObject(CompanionLibrary companions) : AutomationObject(std::move(companions)) {}

    STDMETHODIMP put_Confidence(double percent) override;
    STDMETHODIMP put_Adjust(BSTR word) override;
    STDMETHODIMP put_Control(BSTR label) override;
    STDMETHODIMP put_Trend(VARIANT_BOOL trend) override;
    STDMETHODIMP Calculate() override;
    STDMETHODIMP get_Value(BSTR Name, VARIANT* value) override;
    STDMETHODIMP get_Text(BSTR* text) override;
    STDMETHODIMP get_Json(BSTR* json) override;
    /// A null pointer is an argument that was left out, for a text that is as good as an empty one.
    STDMETHODIMP WriteTo(BSTR Place, VARIANT_BOOL* OverWrite) override;

 private:
    ~DetailsObject() override = default;
    [[nodiscard]] Members members() const noexcept override;
};

}  // namespace TBVNonPara::com
