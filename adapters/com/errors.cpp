#include "adapters/com/errors.hpp"

#include <string>

#include "adapters/com/com_ptr.hpp"
#include "adapters/com/text.hpp"

namespace TBVNonPara::com {

namespace {

constexpr std::int32_t runtimeErrors = static_cast<std::int32_t>(0x800A0000);
constexpr std::int32_t lastRuntimeError = 0xFFFF;

struct Meaning {
    HRESULT status;
    RuntimeError error;
};

constexpr Meaning meanings[] = {
    {E_OUTOFMEMORY, RuntimeError::OutOfMemory},           {E_INVALIDARG, RuntimeError::InvalidProcedureCall},
    {DISP_E_TYPEMISMATCH, RuntimeError::TypeMismatch},    {DISP_E_OVERFLOW, RuntimeError::Overflow},
    {DISP_E_BADINDEX, RuntimeError::SubscriptOutOfRange}, {DISP_E_DIVBYZERO, RuntimeError::DivisionByZero},
};

std::string systemText(HRESULT status) {
    wchar_t text[256] = L"";
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(status), 0, text, 256, nullptr);
    while (length > 0 && text[length - 1] <= L' ') {
        length -= 1;
    }
    return toUtf8(std::wstring_view(text, length));
}

std::string take(BSTR& text) {
    std::string result = toUtf8(text);
    SysFreeString(text);
    text = nullptr;
    return result;
}

void setErrorInfo(const Error& error) {
    ComPtr<ICreateErrorInfo> creation;
    check(CreateErrorInfo(creation.out()));
    const BSTR source = toBstr(error.source());
    creation->SetSource(source);
    SysFreeString(source);
    if (!error.description().empty()) {
        const BSTR description = toBstr(error.description());
        creation->SetDescription(description);
        SysFreeString(description);
    }
    SetErrorInfo(0, creation.as<IErrorInfo>().get());
}

}  // namespace

HRESULT toHresult(std::int32_t number) noexcept {
    if (number < 0) {
        return number;
    }
    // A number that is neither a failure nor a runtime error must still arrive as an error.
    return number >= 1 && number <= lastRuntimeError ? runtimeErrors + number : E_FAIL;
}

std::int32_t numberOf(HRESULT status) noexcept {
    const bool isRuntimeError = status > runtimeErrors && status <= runtimeErrors + lastRuntimeError;
    return isRuntimeError ? status - runtimeErrors : status;
}

Error errorOf(HRESULT status) {
    for (const Meaning& meaning : meanings) {
        if (meaning.status == status) {
            return Error(static_cast<std::int32_t>(meaning.error), std::string(description(meaning.error)));
        }
    }
    if (status == DISP_E_UNKNOWNNAME || status == DISP_E_MEMBERNOTFOUND) {
        return Error(noSuchMember, "Object doesn't support this property or method");
    }
    return Error(numberOf(status), systemText(status));
}

Error errorOf(EXCEPINFO& information) {
    if (information.pfnDeferredFillIn != nullptr) {
        information.pfnDeferredFillIn(&information);
    }
    const std::string source = take(information.bstrSource);
    const std::string description = take(information.bstrDescription);
    take(information.bstrHelpFile);
    const std::int32_t number = information.wCode != 0 ? information.wCode : numberOf(information.scode);
    return Error(number, description, source);
}

HRESULT toErrorInfo() noexcept {
    try {
        const Error error = currentError();
        setErrorInfo(error);
        return toHresult(error.number());
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

void toExcepInfo(HRESULT status, IErrorInfo& error, EXCEPINFO& information) noexcept {
    information = EXCEPINFO{};
    information.scode = status;
    error.GetSource(&information.bstrSource);
    error.GetDescription(&information.bstrDescription);
}

}  // namespace TBVNonPara::com
