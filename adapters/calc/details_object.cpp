#include "adapters/calc/details_object.hpp"

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/calc_range.hpp"
#include "adapters/calc/column_widths.hpp"
#include "adapters/calc/script_errors.hpp"
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

}  // namespace

DetailsObject::DetailsObject(const Context& context)
    : m_Context(context),
      m_Session(std::make_shared<Session>(context)),
      m_Details(calcCompanions(m_Session)) {
    m_Session->titleSteps("Details");
}

void DetailsObject::setMethod(sal_Int32 Method) {
    raisingExceptions(self(), [&] { m_Details.LetMethod(static_cast<TBVNPMethod>(Method)); });
}

void DetailsObject::setHeaders(sal_Bool Headers) {
    raisingExceptions(self(), [&] { m_Details.LetHeaders(Headers); });
}

void DetailsObject::setOutputDescriptives(sal_Bool OutputDescriptives) {
    raisingExceptions(self(), [&] { m_Details.LetOutputDescriptives(OutputDescriptives); });
}

void DetailsObject::setIgnoreTies(sal_Bool IgnoreTies) {
    raisingExceptions(self(), [&] { m_Details.LetIgnoreTies(IgnoreTies); });
}

void DetailsObject::setTails(sal_Int32 Tails) {
    raisingExceptions(self(), [&] { m_Details.LetTails(static_cast<TBVNPTails>(Tails)); });
}

void DetailsObject::setYRange(const OUString& Address) {
    raisingExceptions(self(), [&] { m_Details.LetYRange(toUtf8(Address)); });
}

void DetailsObject::setXRange(const OUString& Address) {
    raisingExceptions(self(), [&] { m_Details.LetXRange(toUtf8(Address)); });
}

void DetailsObject::setOutputRange(const OUString& Address) {
    raisingExceptions(self(), [&] { m_Details.LetOutputRange(toUtf8(Address)); });
}

void DetailsObject::setConfidence(double Confidence) {
    raisingExceptions(self(), [&] { m_Details.LetConfidence(Confidence); });
}

void DetailsObject::setAdjust(const OUString& Adjust) {
    raisingExceptions(self(), [&] { m_Details.LetAdjust(toUtf8(Adjust)); });
}

void DetailsObject::setControl(const OUString& Control) {
    raisingExceptions(self(), [&] { m_Details.LetControl(toUtf8(Control)); });
}

void DetailsObject::setTrend(sal_Bool Trend) {
    raisingExceptions(self(), [&] { m_Details.LetTrend(Trend); });
}

void DetailsObject::Calculate() {
    raisingExceptions(self(), [&] { m_Details.Calculate(); });
}

Any DetailsObject::Value(const OUString& Name) {
    return raisingExceptions(self(), [&] { return toAny(m_Details.Value(toUtf8(Name))); });
}

OUString DetailsObject::getText() {
    return raisingExceptions(self(), [&] { return fromUtf8(m_Details.Text()); });
}

OUString DetailsObject::getJson() {
    return raisingExceptions(self(), [&] { return fromUtf8(m_Details.Json()); });
}

OUString DetailsObject::WriteTo(const OUString& Address, sal_Bool OverWrite) {
    return raisingExceptions(self(), [&] {
        const Run run(*m_Session);
        const RangeRef block = m_Details.WriteTo(toUtf8(Address), OverWrite);
        widenColumns(m_Context, cellsOf(block));
        return fromUtf8(rangeText(block));
    });
}

}  // namespace TBVNonPara::calc
