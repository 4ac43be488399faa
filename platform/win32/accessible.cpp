#include "platform/accessible.h"

#include "platform/win32/wide_text.h"

#include <windows.h>

#include <initguid.h>
#include <oleacc.h>

namespace tarveth::platform {

namespace {

bool IsLabel(HWND control) {
    wchar_t kind[32] = {};
    GetClassNameW(control, kind, 32);
    return lstrcmpiW(kind, L"Static") == 0;
}

} // namespace

// On Windows, programs find a control by its window's number and text, so `name` is not used.
void SetAccessible(void* nativeWidget, const std::string&, const std::string& description) {
    auto* const control = static_cast<HWND>(nativeWidget);
    IAccPropServices* services = nullptr;
    if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                reinterpret_cast<void**>(&services))))
        return;
    // As long as a label is given no name, its text is its accessible name.
    services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                             IsLabel(control) ? PROPID_ACC_DESCRIPTION : PROPID_ACC_NAME,
                             WideFromText(description).c_str());
    services->Release();
}

} // namespace tarveth::platform
