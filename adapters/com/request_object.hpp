#pragma once

#include "adapters/com/automation_object.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara::com {

/// TBVNonPara.clsNonPara.
class RequestObject final : public AutomationObject<_clsNonPara, ::clsNonPara, clsNonPara> {
 public:
    explicit RequestObject(CompanionLibrary companions) : AutomationObject(std::move(companions)) {}

    /// A null pointer is an argument that was left out.
    STDMETHODIMP Results(VARIANT_BOOL* OverWrite) override;

 private:
    ~RequestObject() override = default;
    [[nodiscard]] Members members() const noexcept override;
};

}  // namespace TBVNonPara::com
