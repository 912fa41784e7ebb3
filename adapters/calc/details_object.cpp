#include "adapters/calc/details_object.hpp"

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/calc_range.hpp"
#include "adapters/calc/column_widths.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

/// What a script sees of a cell's value: nothing of an empty one.
Any toAny(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return Any(*number);
    }
    const auto* text = std::get_if<Text>(&value);
    return text != nullptr ? Any(fromUtf8(text->string())) : Any();
}

OUString textOrNothing(const Any& value) {
    return value.hasValue() ? toOfficeText(value) : OUString();
}

Any callCalculate(DetailsObject& object, const css::uno::Sequence<Any>&) {
    object.Calculate();
    return {};
}

Any callValue(DetailsObject& object, const css::uno::Sequence<Any>& arguments) {
    return object.Value(toOfficeText(argument(arguments, 0, std::array{"Name"})));
}

Any callWriteTo(DetailsObject& object, const css::uno::Sequence<Any>& arguments) {
    constexpr std::array names{"Address", "OverWrite"};
    const Any address = argument(arguments, 0, names);
    const Any overWrite = argument(arguments, 1, names);
    return Any(object.WriteTo(address.hasValue() ? toAddress(address) : OUString(),
                              overWrite.hasValue() && toBoolean(overWrite)));
}

}  // namespace

std::span<const ScriptMember<DetailsObject>> DetailsObject::members() {
    using O = DetailsObject;
    // clang-format off
    static const auto all = membersBehindSettings<O>(std::array<ScriptMember<O>, 9>{{
        {"Confidence", numberType, [](O& o, const Any& v) { o.setConfidence(toNumber(v)); }},
        {"Adjust", textType, [](O& o, const Any& v) { o.setAdjust(toOfficeText(v)); }},
        {"Control", textType, [](O& o, const Any& v) { o.setControl(textOrNothing(v)); }},
        {"Trend", booleanType, [](O& o, const Any& v) { o.setTrend(toBoolean(v)); }},
        {"Calculate", nothingType, nullptr, nullptr, callCalculate},
        {"Value", anythingType, nullptr, nullptr, callValue, {&textType}},
        {"Text", textType, nullptr, [](O& o) { return Any(o.getText()); }},
        {"Json", textType, nullptr, [](O& o) { return Any(o.getJson()); }},
        {"WriteTo", textType, nullptr, nullptr, callWriteTo, {&textType, &booleanType}},
    }});
    // clang-format on
    return all;
}

DetailsObject::DetailsObject(const Context& context)
    : ScriptObject(context), m_Details(calcCompanions(session())) {
    session()->titleSteps("Details");
}

void DetailsObject::setMethod(sal_Int32 Method) {
    guarded([&] { m_Details.LetMethod(static_cast<TBVNPMethod>(Method)); });
}

void DetailsObject::setHeaders(sal_Bool Headers) {
    guarded([&] { m_Details.LetHeaders(Headers); });
}

void DetailsObject::setOutputDescriptives(sal_Bool OutputDescriptives) {
    guarded([&] { m_Details.LetOutputDescriptives(OutputDescriptives); });
}

void DetailsObject::setIgnoreTies(sal_Bool IgnoreTies) {
    guarded([&] { m_Details.LetIgnoreTies(IgnoreTies); });
}

void DetailsObject::setTails(sal_Int32 Tails) {
    guarded([&] { m_Details.LetTails(static_cast<TBVNPTails>(Tails)); });
}

void DetailsObject::setYRange(const OUString& Address) {
    guarded([&] { m_Details.LetYRange(toUtf8(Address)); });
}

void DetailsObject::setXRange(const OUString& Address) {
    guarded([&] { m_Details.LetXRange(toUtf8(Address)); });
}

void DetailsObject::setOutputRange(const OUString& Address) {
    guarded([&] { m_Details.LetOutputRange(toUtf8(Address)); });
}

void DetailsObject::setConfidence(double Confidence) {
    guarded([&] { m_Details.LetConfidence(Confidence); });
}

void DetailsObject::setAdjust(const OUString& Adjust) {
    guarded([&] { m_Details.LetAdjust(toUtf8(Adjust)); });
}

void DetailsObject::setControl(const OUString& Control) {
    guarded([&] { m_Details.LetControl(toUtf8(Control)); });
}

void DetailsObject::setTrend(sal_Bool Trend) {
    guarded([&] { m_Details.LetTrend(Trend); });
}

void DetailsObject::Calculate() {
    guarded([&] { m_Details.Calculate(); });
}

Any DetailsObject::Value(const OUString& Name) {
    return guarded([&] { return toAny(m_Details.Value(toUtf8(Name))); });
}

OUString DetailsObject::getText() {
    return guarded([&] { return fromUtf8(m_Details.Text()); });
}

OUString DetailsObject::getJson() {
    return guarded([&] { return fromUtf8(m_Details.Json()); });
}

OUString DetailsObject::WriteTo(const OUString& Address, sal_Bool OverWrite) {
    return guarded([&] {
        const Run run(*session());
        const RangeRef block = m_Details.WriteTo(toUtf8(Address), OverWrite);
        widenColumns(session()->context(), cellsOf(block));
        return fromUtf8(rangeText(block));
    });
}

}  // namespace TBVNonPara::calc
