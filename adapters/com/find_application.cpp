#include "adapters/com/find_application.hpp"

#include <utility>

#include "adapters/com/errors.hpp"
#include "adapters/com/host_object.hpp"
#include "adapters/com/module.hpp"
#include "adapters/com/system_library.hpp"

namespace TBVNonPara::com {

namespace {

/// The class of the windows that show a workbook's cells; such a window hands out an object of the model.
constexpr wchar_t workbookWindow[] = L"EXCEL7";
constexpr DWORD nativeObjectModel = 0xFFFFFFF0;
constexpr wchar_t applicationClass[] = L"Excel.Application";

// A plain pointer: at the end of the process the application is gone before this library.
IDispatch* hooked = nullptr;

/// The functions on windows that the search needs.
struct Windows {
    SystemLibrary user{L"user32.dll"};
    SystemLibrary accessibility{L"oleacc.dll"};
    decltype(&EnumWindows) enumerate = user.function<decltype(EnumWindows)>("EnumWindows");
    decltype(&EnumChildWindows) enumerateChildren =
        user.function<decltype(EnumChildWindows)>("EnumChildWindows");
    decltype(&GetClassNameW) className = user.function<decltype(GetClassNameW)>("GetClassNameW");
    decltype(&GetWindowThreadProcessId) threadAndProcess =
        user.function<decltype(GetWindowThreadProcessId)>("GetWindowThreadProcessId");
    HRESULT(WINAPI* objectOf)
    (HWND, DWORD, REFIID, void**) =
        accessibility.function<HRESULT WINAPI(HWND, DWORD, REFIID, void**)>("AccessibleObjectFromWindow");

    [[nodiscard]] bool areThere() const { return enumerate != nullptr && objectOf != nullptr; }

    [[nodiscard]] bool isOurs(HWND window) const {
        DWORD process = 0;
        threadAndProcess(window, &process);
        return process == GetCurrentProcessId();
    }
};

struct Search {
    const Windows& windows;
    HWND found;
};

BOOL CALLBACK takeWorkbookWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    wchar_t name[16] = L"";
    search.windows.className(window, name, 16);
    if (CompareStringOrdinal(name, -1, workbookWindow, -1, FALSE) != CSTR_EQUAL) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

BOOL CALLBACK searchOwnWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (search.windows.isOurs(window) && takeWorkbookWindow(window, parameter) != FALSE) {
        search.windows.enumerateChildren(window, takeWorkbookWindow, parameter);
    }
    return search.found == nullptr ? TRUE : FALSE;
}

HostObject asHost(ComPtr<IDispatch> object) {
    return HostObject(std::move(object), Kind::Application, std::make_shared<ObjectModel>());
}

ComPtr<IDispatch> applicationOfOwnWindow() {
    const Windows windows;
    if (!windows.areThere()) {
        return {};
    }
    Search search{windows, nullptr};
    windows.enumerate(searchOwnWindow, reinterpret_cast<LPARAM>(&search));
    ComPtr<IDispatch> window;
    if (search.found == nullptr || FAILED(windows.objectOf(search.found, nativeObjectModel, IID_IDispatch,
                                                           reinterpret_cast<void**>(window.out())))) {
        return {};
    }
    return asHost(window).object(Kind::Application, L"Application").dispatch();
}

ComPtr<IDispatch> activeApplication() {
    CLSID application;
    ComPtr<IUnknown> active;
    if (FAILED(CLSIDFromProgID(applicationClass, &application)) ||
        FAILED(GetActiveObject(application, nullptr, active.out()))) {
        return {};
    }
    return active.as<IDispatch>();
}

bool hasOwnWindow(const ComPtr<IDispatch>& application) {
    try {
        const Windows windows;
        const auto handle = static_cast<INT_PTR>(asHost(application).getNumber(L"Hwnd"));
        return windows.threadAndProcess != nullptr && windows.isOurs(reinterpret_cast<HWND>(handle));
    } catch (const Error&) {
        return false;
    }
}

/// An object that is reached directly is one of this process; behind a proxy it may still be one, of another
/// thread.
bool isOfThisProcess(const ComPtr<IDispatch>& application) {
    return !application.as<IClientSecurity>() || hasOwnWindow(application);
}

void requireThisProcess(const ComPtr<IDispatch>& application) {
    if (!isOfThisProcess(application)) {
        throw Error(
            tbvNPApplicationElsewhere,
            "The spreadsheet application runs in another process. Create TBVNonPara.clsNonPara inside "
            "the application, from a macro or an add-in.");
    }
}

}  // namespace

ComPtr<IDispatch> findApplication() {
    if (hooked != nullptr) {
        return ComPtr<IDispatch>::share(hooked);
    }
    if (ComPtr<IDispatch> application = applicationOfOwnWindow()) {
        return application;
    }
    if (ComPtr<IDispatch> application = activeApplication()) {
        requireThisProcess(application);
        return application;
    }
    throw Error(
        tbvNPNoApplication,
        "No spreadsheet application was found in this process. Create TBVNonPara.clsNonPara inside the "
        "application, from a macro or an add-in.");
}

void hookApplication(ComPtr<IDispatch> application) {
    if (application) {
        requireThisProcess(application);
        holdModule();
    }
    if (const auto former = ComPtr<IDispatch>::adopt(std::exchange(hooked, application.release()))) {
        letModuleGo();
    }
}

}  // namespace TBVNonPara::com
