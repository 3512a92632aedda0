#pragma once
// The system's service that names windows for screen readers, of which Wine has only an outline.

#include <windows.h>
// Requires the include above.
#include <oleacc.h>

#include <map>
#include <string>

#include "platform/windows/com_object.h"

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(IAccPropServices, 0x6e26e776, 0x04f0, 0x495d, 0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e,
                0x31, 0x69)
#endif

namespace pelk {

/// Remembers the names that are given to windows.
class AnnouncedNames : public ComObject<IAccPropServices> {
 public:
    using Id = const BYTE*;
    using Properties = const MSAAPROPID*;

    static inline std::map<HWND, std::wstring> names;

    HRESULT WINAPI SetHwndPropStr(HWND window, DWORD, DWORD, MSAAPROPID property,
                                  LPCWSTR text) override {
        if (IsEqualGUID(property, PROPID_ACC_NAME))
            names[window] = text;
        return S_OK;
    }

    HRESULT WINAPI SetPropValue(Id, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetPropServer(Id, DWORD, Properties, int, IAccPropServer*, AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearProps(Id, DWORD, Properties, int) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, Properties, int, IAccPropServer*,
                                     AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHwndProps(HWND, DWORD, DWORD, Properties, int) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI DecomposeHwndIdentityString(Id, DWORD, HWND*, DWORD*, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, Properties, int, IAccPropServer*,
                                      AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, Properties, int) override { return E_NOTIMPL; }
    HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI DecomposeHmenuIdentityString(Id, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }
};

}  // namespace pelk
