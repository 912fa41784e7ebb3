#include "tests/adapters/com/late_call.hpp"

#include "adapters/com/text.hpp"

namespace TBVNonPara::com {

LateAnswer invoke(IDispatch& object, DISPID member, WORD flags, std::vector<VARIANT> arguments,
                  std::vector<DISPID> named) {
    DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(named.size())};
    LateAnswer answer;
    EXCEPINFO information{};
    answer.status = object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                  answer.result.out(), &information, &answer.wrongArgument);
    answer.error = information.scode;
    answer.source = toUtf8(information.bstrSource);
    answer.description = toUtf8(information.bstrDescription);
    SysFreeString(information.bstrSource);
    SysFreeString(information.bstrDescription);
    return answer;
}

std::vector<DISPID> idsOf(IDispatch& object, std::vector<std::wstring> names) {
    std::vector<LPOLESTR> asked;
    for (std::wstring& name : names) {
        asked.push_back(name.data());
    }
    std::vector<DISPID> ids(names.size());
    (void)object.GetIDsOfNames(IID_NULL, asked.data(), static_cast<UINT>(asked.size()), LOCALE_USER_DEFAULT,
                               ids.data());
    return ids;
}

VARIANT reference(VARTYPE type, void* value) {
    VARIANT result{};
    result.vt = static_cast<VARTYPE>(type | VT_BYREF);
    result.byref = value;
    return result;
}

}  // namespace TBVNonPara::com
