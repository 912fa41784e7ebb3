#include "adapters/com/details_object.hpp"

#include "adapters/com/find_application.hpp"
#include "adapters/com/user_watch.hpp"

namespace TBVNonPara::com {

namespace {

using Interface = _clsNonParaDetails;

Interface& detailsIn(IDispatch& object) {
    return static_cast<Interface&>(object);
}

HRESULT callCalculate(IDispatch& object, const Arguments& /*arguments*/, VARIANT* /*result*/) {
    return detailsIn(object).Calculate();
}

HRESULT callValue(IDispatch& object, const Arguments& arguments, VARIANT* result) {
    return detailsIn(object).get_Value(arguments[0].get().bstrVal, result);
}

template <auto get>
HRESULT callText(IDispatch& object, const Arguments& /*arguments*/, VARIANT* result) {
    const HRESULT status = (detailsIn(object).*get)(&result->bstrVal);
    result->vt = SUCCEEDED(status) ? VT_BSTR : VT_EMPTY;
    return status;
}

HRESULT callWriteTo(IDispatch& object, const Arguments& arguments, VARIANT* /*result*/) {
    const VARIANT& place = arguments[0].get();
    VARIANT_BOOL overWrite = overWriteIn(arguments[1]);
    return detailsIn(object).WriteTo(place.vt == VT_EMPTY ? nullptr : place.bstrVal, &overWrite);
}

// In the order of the type library.
constexpr auto detailsMembers = membersBehindSettings<Interface>(std::array{
    property<&Interface::put_Confidence>(L"Confidence", L"percent"),
    property<&Interface::put_Adjust>(L"Adjust", L"word"),
    property<&Interface::put_Control>(L"Control", L"label"),
    property<&Interface::put_Trend>(L"Trend", L"trend"),
    Member{L"Calculate", DISPATCH_METHOD, {}, callCalculate},
    Member{L"Value", DISPATCH_PROPERTYGET, {{{L"Name", VT_BSTR}}}, callValue},
    Member{L"Text", DISPATCH_PROPERTYGET, {}, callText<&Interface::get_Text>},
    Member{L"Json", DISPATCH_PROPERTYGET, {}, callText<&Interface::get_Json>},
    Member{L"WriteTo",
           DISPATCH_METHOD,
           {{{L"Place", VT_BSTR, Given::Optionally, Content::Address},
             {L"OverWrite", VT_BOOL, Given::Optionally}}},
           callWriteTo},
});

}  // namespace

STDMETHODIMP DetailsObject::put_Confidence(double percent) {
    return guarded([&] { wrapped().LetConfidence(percent); });
}

STDMETHODIMP DetailsObject::put_Adjust(BSTR word) {
    return guarded([&] { wrapped().LetAdjust(toUtf8(word)); });
}

STDMETHODIMP DetailsObject::put_Control(BSTR label) {
    return guarded([&] { wrapped().LetControl(toUtf8(label)); });
}

STDMETHODIMP DetailsObject::put_Trend(VARIANT_BOOL trend) {
    return guarded([&] { wrapped().LetTrend(isTrue(trend)); });
}

STDMETHODIMP DetailsObject::Calculate() {
    return guarded([&] {
        UserWatch watch(findApplication);
        wrapped().LetWatch([&](double share) { watch.tell(share); });
        wrapped().Calculate();
    });
}

STDMETHODIMP DetailsObject::get_Value(BSTR Name, VARIANT* value) {
    if (value == nullptr) {
        return E_POINTER;
    }
    VariantInit(value);
    return guarded([&] { *value = toVariant(wrapped().Value(toUtf8(Name)), Texts::AsHeld).release(); });
}

STDMETHODIMP DetailsObject::get_Text(BSTR* text) {
    if (text == nullptr) {
        return E_POINTER;
    }
    *text = nullptr;
    return guarded([&] { *text = toBstr(wrapped().Text()); });
}

STDMETHODIMP DetailsObject::get_Json(BSTR* json) {
    if (json == nullptr) {
        return E_POINTER;
    }
    *json = nullptr;
    return guarded([&] { *json = toBstr(wrapped().Json()); });
}

STDMETHODIMP DetailsObject::WriteTo(BSTR Place, VARIANT_BOOL* OverWrite) {
    return guarded([&] { wrapped().WriteTo(toUtf8(Place), OverWrite != nullptr && isTrue(*OverWrite)); });
}

Members DetailsObject::members() const noexcept {
    return detailsMembers;
}

}  // namespace TBVNonPara::com
