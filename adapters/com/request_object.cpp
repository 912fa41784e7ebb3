#include "adapters/com/request_object.hpp"

namespace TBVNonPara::com {

namespace {

HRESULT callResults(IDispatch& object, const Arguments& arguments, VARIANT* /*result*/) {
    VARIANT_BOOL overWrite = overWriteIn(arguments[0]);
    return static_cast<_clsNonPara&>(object).Results(&overWrite);
}

// In the order of the type library.
constexpr auto requestMembers = membersBehindSettings<_clsNonPara>(std::array{
    Member{L"Results", DISPATCH_METHOD, {{{L"OverWrite", VT_BOOL, Given::Optionally}}}, callResults},
});

}  // namespace

STDMETHODIMP RequestObject::Results(VARIANT_BOOL* OverWrite) {
    return guarded([&] { wrapped().Results(OverWrite != nullptr && isTrue(*OverWrite)); });
}

Members RequestObject::members() const noexcept {
    return requestMembers;
}

}  // namespace TBVNonPara::com
