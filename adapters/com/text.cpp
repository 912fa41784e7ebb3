#include "adapters/com/text.hpp"

#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara::com {

namespace {

int lengthOf(auto text) {
    return Long(text.size()).value();
}

}  // namespace

std::wstring toUtf16(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), lengthOf(text), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), lengthOf(text), wide.data(), length);
    return wide;
}

std::string toUtf8(std::wstring_view text) {
    if (text.empty()) {
        return {};
    }
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), lengthOf(text), nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), lengthOf(text), narrow.data(), length, nullptr, nullptr);
    return narrow;
}

std::string toUtf8(BSTR text) {
    return toUtf8(std::wstring_view(text, SysStringLen(text)));
}

BSTR toBstr(std::string_view text) {
    const std::wstring wide = toUtf16(text);
    BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (result == nullptr) {
        raise(RuntimeError::OutOfMemory);
    }
    return result;
}

}  // namespace TBVNonPara::com
